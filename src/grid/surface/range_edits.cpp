#include "grid/surface/range_edits.h"

#include "routine/calendar_text.h"

namespace vellora {
namespace {

// The first row from row on that is not hidden; Rows() when there is none.
int shownRow(const Sheet& sheet, int row) {
  while (row < sheet.Rows() && sheet.IsRowHidden(row)) ++row;
  return row;
}

QStringList rowTexts(const Sheet& sheet, int row, int col1, int col2) {
  QStringList texts;
  for (int col = col1; col <= col2; ++col) {
    texts << sheet.GetCellText(col, row).replace(kLineBreak, u'\n');
  }
  return texts;
}

void fillCells(Sheet& sheet, const CellRange& range, QString text) {
  text.replace(u'\n', kLineBreak);
  for (int row = shownRow(sheet, range.row1); row <= range.row2; row = shownRow(sheet, row + 1)) {
    for (int col = range.col1; col <= range.col2; ++col) sheet.SetCellText(col, row, text);
  }
}

}  // namespace

TextTable textsOf(const Sheet& sheet, const CellRange& range) {
  TextTable table;
  for (int row = shownRow(sheet, range.row1); row <= range.row2; row = shownRow(sheet, row + 1)) {
    table.push_back(rowTexts(sheet, row, range.col1, range.col2));
  }
  return table;
}

void emptyCells(Sheet& sheet, const CellRange& range) {
  fillCells(sheet, range, QString());
}

Lost pasteTexts(Sheet& sheet, const CellRange& range, const TextTable& table) {
  Lost lost;
  if (table.size() == 1 && table.front().size() == 1) {
    fillCells(sheet, range, table.front().front());
    return lost;
  }
  int row = shownRow(sheet, range.row1);
  for (const QStringList& texts : table) {
    if (row >= sheet.Rows()) ++lost.rows;
    lost.cols = std::max(lost.cols, range.col1 + static_cast<int>(texts.size()) - sheet.Cols());
    int col = range.col1;
    for (QString text : texts) sheet.SetCellText(col++, row, text.replace(u'\n', kLineBreak));
    row = shownRow(sheet, row + 1);
  }
  return lost;
}

void copyCells(const Sheet& from, const CellRange& range, Sheet& to, CellPlace place) {
  for (int row = range.row1; row <= range.row2; ++row) {
    for (int col = range.col1; col <= range.col2; ++col) {
      const int toCol = place.col + col - range.col1;
      const int toRow = place.row + row - range.row1;
      to.SetCellText(toCol, toRow, from.GetCellText(col, row));
      to.SetCellTag(toCol, toRow, from.CellTag(col, row));
      to.SetCellSettings(toCol, toRow, from.SettingsAt(col, row));
    }
  }
}

}  // namespace vellora
