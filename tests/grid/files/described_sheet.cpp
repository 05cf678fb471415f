#include "described_sheet.h"

#include "routine/number_text.h"

namespace vellora::test {
namespace {

QString hex(PackedColour colour) {
  return u"%1%2%3"_qs.arg(redOf(colour), 2, 16, QChar(u'0'))
      .arg(greenOf(colour), 2, 16, QChar(u'0'))
      .arg(blueOf(colour), 2, 16, QChar(u'0'));
}

QString describedLook(const CellStyle& style) {
  const bool hasLine = style.border && style.borderWidth > 0;
  QStringList parts{style.font.face, QString::number(style.font.size)};
  parts << (style.font.style == kFontBold ? u"bold"_qs : u"regular"_qs);
  parts << (style.hasColours ? hex(style.textColour) : u"auto"_qs);
  parts << (style.hasColours ? hex(style.backColour) : u"none"_qs);
  parts << (style.align & kAlignCentre  ? u"centre"_qs
            : style.align & kAlignRight ? u"right"_qs
                                        : u"left"_qs);
  parts << (style.align & kAlignTop      ? u"top"_qs
            : style.align & kAlignBottom ? u"bottom"_qs
                                         : u"middle"_qs);
  parts << (style.wrap ? u"wrap"_qs : u"line"_qs) << (style.option == 1 ? u"@"_qs : u"General"_qs);
  parts << QString::number(hasLine ? style.borderWidth : 0);
  parts << (hasLine ? hex(style.borderColour) : u"none"_qs);
  return parts.join(u'/');
}

QString describedCell(const Sheet& sheet, int col, int row) {
  QString text = sheet.GetCellText(col, row);
  const QString kind = text.isEmpty()               ? u"blank"_qs
                       : sheet.CellNumber(col, row) ? u"number"_qs
                                                    : u"text"_qs;
  text.replace(u'\\', u"\\\\"_qs).replace(u'\r', u"\\n"_qs).replace(u'\t', u"\\t"_qs);
  return u"cell\t%1\t%2\t"_qs.arg(row + 1).arg(col) + kind + u'\t' + text + u'\t' +
         describedLook(sheet.StyleAt(col, row));
}

}  // namespace

QStringList describedSizes(const Sheet& sheet) {
  QStringList lines;
  for (int col = 0; col < sheet.Cols(); ++col) {
    const int width = sheet.ColumnWidth(col).value_or(100);
    lines << u"column\t%1\t%2\t%3"_qs.arg(col).arg(width * 32).arg(width == 0 ? 1 : 0);
  }
  for (int row = kHeadingRow; row < sheet.Rows(); row = sheet.NextWrittenRow(row + 1)) {
    const int height = sheet.RowHeight(row).value_or(sheet.DefaultRowHeight());
    const bool isHidden = sheet.IsRowHidden(row) || height == 0;
    lines << u"row\t%1\t%2\t%3"_qs.arg(row + 1).arg(height * 15).arg(isHidden ? 1 : 0);
  }
  return lines;
}

QStringList describedCells(const Sheet& sheet) {
  QStringList lines;
  for (int row = kHeadingRow; row < sheet.Rows(); ++row) {
    for (int col = 0; col < sheet.Cols(); ++col) {
      const CellStyle& style = sheet.StyleAt(col, row);
      const bool shows = style.hasColours || style.border;
      const bool isEmpty = sheet.GetCellText(col, row).isEmpty();
      if (row == kHeadingRow || shows || !isEmpty) lines << describedCell(sheet, col, row);
    }
  }
  return lines;
}

QStringList linesAbout(const QString& kind, const QStringList& lines) {
  QStringList found;
  for (const QString& line : lines) {
    QStringList parts = line.split(u'\t');
    if (parts[0] != kind) continue;
    if (parts.value(3) == u"number") parts[4] = numberText(parts[4].toDouble());
    found << parts.join(u'\t');
  }
  return found;
}

Sheet sampleList() {
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

}  // namespace vellora::test
