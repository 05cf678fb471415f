#include "grid/files/exported_sheet.h"

namespace vellora {
namespace {

constexpr QChar kReplacement = QChar::ReplacementCharacter;
constexpr int kUsualWidth = 100;  // of columns without a width of their own

bool isHalf(QStringView text, qsizetype place) {
  if (!text[place].isSurrogate()) return false;
  if (text[place].isHighSurrogate()) {
    return place + 1 == text.size() || !text[place + 1].isLowSurrogate();
  }
  return place == 0 || !text[place - 1].isHighSurrogate();
}

}  // namespace

QString exportedText(const QString& cellText) {
  if (!cellText.contains(u'\r') && cellText.isValidUtf16()) return cellText;
  QString text = cellText;
  QChar* const begin = text.data();
  QChar* end = begin;
  for (qsizetype place = 0; place < cellText.size(); ++place) {
    const QChar unit = cellText[place];
    if (unit == u'\n' && place > 0 && cellText[place - 1] == u'\r') continue;
    *end++ = unit == u'\r' ? QChar(u'\n') : isHalf(cellText, place) ? kReplacement : unit;
  }
  text.truncate(end - begin);
  return text;
}

bool hasHeadings(const Sheet& sheet) {
  for (int col = 0; col < sheet.Cols(); ++col) {
    if (!sheet.GetCellText(col, kHeadingRow).isEmpty()) return true;
  }
  return false;
}

int exportedWidth(const Sheet& sheet, int col) {
  return sheet.ColumnWidth(col).value_or(kUsualWidth);
}

bool isOutOfView(const Sheet& sheet, int row) {
  return sheet.IsRowHidden(row) || sheet.RowHeight(row) == 0;
}

int exportedHeight(const Sheet& sheet, int row) {
  return sheet.RowHeight(row).value_or(sheet.DefaultRowHeight());
}

}  // namespace vellora
