#pragma once

#include "grid/sheet/workbook.h"

namespace vellora::test {

// A small workbook with something in every field that a file keeps.
inline Workbook sampleWorkbook() {
  Workbook workbook;
  workbook.pageSetup = {true, true, 10.5, 11, 12, 13.25};
  workbook.SetSheetName(u"SJ"_qs, 0);
  workbook.AddSheet(u"活动"_qs);
  workbook.SetCurrentSheet(1);
  Sheet& sheet = workbook.sheet();
  sheet.SetCols(3);
  sheet.SetRows(40);
  sheet.SetDefaultRowHeight(38);
  sheet.SetDefaultFont(9, kFontRegular, u"楷体_GB2312"_qs);
  sheet.SetColumnWidth(1, 260);
  sheet.SetCellText(1, kHeadingRow, u"名称"_qs);
  sheet.SetCellTag(1, kHeadingRow, u"key"_qs);
  sheet.SetCellColors(1, kHeadingRow, kRed, kWhite);
  sheet.SetCellAlign(0, kEveryRow, kAlignCentred);
  sheet.SetCellInput(0, kEveryRow, 1);
  sheet.SetCellText(0, 0, u"08:00-09:30\r早读"_qs);
  sheet.SetCellTag(0, 0, u"A01"_qs);
  sheet.SetCellColors(0, 0, kBlue, packColour(230, 220, 255));
  sheet.SetCellFont(2, 0, 12, kFontBold, u"黑体"_qs);
  sheet.SetCellValue(2, 3, 12.5);
  sheet.SetCellOption(0, 3, 1);
  sheet.SetCellText(0, 3, u"12.5"_qs);
  sheet.SetCellWrap(0, 3, true);
  sheet.SetRangeBorder(1, 2, 2, 3, 0, 2, kBlue);
  sheet.SetRowHeight(3, 51);
  sheet.SetRowHeight(30, 0);
  sheet.HideRow(31);
  return workbook;
}

}  // namespace vellora::test
