#include "grid/files/workbook_comparison.h"

namespace vellora {
namespace {

bool areEmptyRows(const Sheet& sheet, int first, int end) {
  for (int row = sheet.NextWrittenRow(first); row < end; row = sheet.NextWrittenRow(row + 1)) {
    if (!sheet.IsRowEmpty(row)) return false;
  }
  return true;
}

bool isSameCell(const Sheet& sheet, int row, const CellNumbers& numbers,
                const DecodedRow::Cell& cell) {
  if (sheet.GetCellText(cell.col, row) != cell.text) return false;
  if (numbers.tag != 0 || !cell.tag.isEmpty()) {
    if (sheet.CellTag(cell.col, row) != cell.tag) return false;
  }
  if (!cell.settings) return numbers.settings == 0;
  return sheet.SettingsAt(cell.col, row) == *cell.settings;
}

bool areSameCells(const Sheet& sheet, const DecodedRow& row) {
  auto cell = row.cells.begin();
  for (int col = 0; col < sheet.Cols(); ++col) {
    const CellNumbers numbers = sheet.NumbersAt(col, row.index);
    const bool isInFile = cell != row.cells.end() && cell->col == col;
    if (!isInFile && numbers != CellNumbers()) return false;
    if (isInFile && !isSameCell(sheet, row.index, numbers, *cell++)) return false;
  }
  return cell == row.cells.end();
}

bool isSameRow(const Sheet& sheet, const DecodedRow& row) {
  return sheet.RowHeight(row.index) == row.height && sheet.IsRowHidden(row.index) == row.isHidden &&
         areSameCells(sheet, row);
}

bool isSameColumn(const Sheet& one, const Sheet& other, int col) {
  return one.ColumnWidth(col) == other.ColumnWidth(col) &&
         one.GetCellText(col, kHeadingRow) == other.GetCellText(col, kHeadingRow) &&
         one.CellTag(col, kHeadingRow) == other.CellTag(col, kHeadingRow) &&
         one.SettingsAt(col, kHeadingRow) == other.SettingsAt(col, kHeadingRow) &&
         one.SettingsAt(col, kEveryRow) == other.SettingsAt(col, kEveryRow);
}

// All but the rows' content.
bool isSameFrame(const Sheet& one, const Sheet& other) {
  bool isSame = one.Rows() == other.Rows() && one.Cols() == other.Cols() &&
                one.DefaultRowHeight() == other.DefaultRowHeight() &&
                one.DefaultFont() == other.DefaultFont();
  for (int col = 0; isSame && col < one.Cols(); ++col) isSame = isSameColumn(one, other, col);
  return isSame;
}

}  // namespace

WorkbookComparison::WorkbookComparison(const Workbook& expected)
    : expected_(expected), nextRows_(static_cast<std::size_t>(expected.SheetCount())) {}

void WorkbookComparison::take(int sheet, const DecodedRow& row) {
  const auto place = static_cast<std::size_t>(sheet);
  isSame_ = isSame_ && place < nextRows_.size() && isNextRow(place, row);
  if (isSame_) nextRows_[place] = row.index + 1;
}

bool WorkbookComparison::isNextRow(std::size_t sheet, const DecodedRow& row) const {
  const Sheet& expected = expected_.sheetAt(static_cast<int>(sheet));
  return row.index < expected.Rows() && areEmptyRows(expected, nextRows_[sheet], row.index) &&
         isSameRow(expected, row);
}

bool WorkbookComparison::isSame(const Workbook& read) const {
  bool isSame = isSame_ && read.SheetCount() == expected_.SheetCount() &&
                read.CurrentSheet() == expected_.CurrentSheet() &&
                read.pageSetup == expected_.pageSetup;
  for (int sheet = 0; isSame && sheet < read.SheetCount(); ++sheet) {
    const Sheet& expected = expected_.sheetAt(sheet);
    isSame = read.SheetName(sheet) == expected_.SheetName(sheet) &&
             isSameFrame(read.sheetAt(sheet), expected) &&
             areEmptyRows(expected, nextRows_[static_cast<std::size_t>(sheet)], expected.Rows());
  }
  return isSame;
}

}  // namespace vellora
