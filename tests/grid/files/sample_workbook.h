#pragma once

#include "grid/sheet/workbook.h"

namespace vellora::test {

// A list as the windows make them: headings, Chinese and rare texts, numbers, dates, looks, sizes.
inline Sheet sampleList() {
  Sheet sheet;
  sheet.SetCols(4);
  sheet.SetRows(70);
  sheet.SetDefaultRowHeight(26);
  sheet.SetDefaultFont(9, kFontRegular, u"楷体_GB2312"_qs);
  sheet.SetColumnWidth(0, 75);
  sheet.SetColumnWidth(1, 260);
  sheet.SetColumnWidth(3, 0);
  for (int col = 0; col < 3; ++col) sheet.SetCellText(col, kHeadingRow, u"标题%1"_qs.arg(col));
  sheet.SetCellColors(1, kHeadingRow, kRed, packColour(1, 2, 3));
  sheet.SetCellAlign(0, kEveryRow, kAlignCentred);
  const QStringList texts{u"读书"_qs,       u"𠮷野家😀"_qs, u"一\r二\r\r四"_qs, u"001"_qs,
                          u"2007-03-05"_qs, u"08:30"_qs,   u" <b>&\"'\\ "_qs,  u"=1+1"_qs,
                          u"café"_qs,       u"1e5"_qs,     u"-0"_qs,           u"3."_qs};
  for (int row = 0; row < texts.size(); ++row) sheet.SetCellText(0, row, texts[row]);
  const QList<double> numbers{0, -1.5, 0.1, 12345678901.0, 1e300, -2e-7, 1.0 / 3};
  for (int row = 0; row < numbers.size(); ++row) sheet.SetCellValue(2, row, numbers[row]);
  sheet.SetCellText(1, 0, u"12"_qs);
  sheet.SetCellOption(1, 0, 1);
  sheet.SetCellWrap(0, 2, true);
  sheet.SetCellFont(1, 1, 24, kFontBold, u"黑体"_qs);
  sheet.SetCellText(1, 1, u"粗"_qs);
  sheet.SetCellColors(2, 1, kWhite, packColour(12, 34, 56));
  sheet.SetCellAlign(2, 2, kAlignRight + kAlignBottom);
  sheet.SetCellAlign(2, 3, kAlignCentre + kAlignTop);
  for (const int width : {1, 2, 3})
    sheet.SetRangeBorder(1, 10 * width, 2, 10 * width + 1, 0, width, kBlue);
  sheet.SetRowHeight(5, 51);
  sheet.SetRowHeight(6, 0);
  sheet.HideRow(33);
  sheet.SetCellText(0, 69, u"末行"_qs);
  return sheet;
}

// A small workbook with something in every field that a file keeps.
inline Workbook sampleWorkbook() {
  Workbook workbook;
  workbook.pageSetup = {true, true, 10.5, 11, 12, 13.25};
  workbook.SetSheetName(u"SJ"_qs, 0);
  workbook.AddSheet(u"活动"_qs);
  workbook.SetCurrentSheet(1);
  Sheet& sheet = workbook.sheet();
  sheet = sampleList();
  sheet.SetCellTag(1, kHeadingRow, u"key"_qs);
  sheet.SetCellTag(0, 0, u"A01"_qs);
  sheet.SetCellInput(0, kEveryRow, 1);
  return workbook;
}

}  // namespace vellora::test
