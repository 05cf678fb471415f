#include "grid/surface/range_edit.h"

#include "grid/files/exported_sheet.h"
#include "grid/surface/grid_appearance.h"
#include "routine/calendar_text.h"

namespace vellora {
namespace {

void copyCell(const Sheet& from, CellPlace cell, Sheet& to, CellPlace place) {
  to.SetCellText(place.col, place.row, from.GetCellText(cell.col, cell.row));
  to.SetCellTag(place.col, place.row, from.CellTag(cell.col, cell.row));
  to.SetCellSettings(place.col, place.row, from.SettingsAt(cell.col, cell.row));
}

}  // namespace

bool RangeEdit::isOpen(CellPlace cell) const {
  return cell.col < sheet_.Cols() && cell.row < sheet_.Rows() &&
         settings_.appearance.isOpen(cell.col, cell.row);
}

void RangeEdit::reportProgress(int row, int rows) const {
  reportRow(progress_, u"正在改动各行……"_qs, row, rows);
}

void RangeEdit::enter(CellPlace cell, const QString& text) {
  if (!isOpen(cell)) return;
  std::optional<CellEntry> entry = CellEntry{text, QString()};
  if (settings_.rule && !text.isEmpty()) entry = settings_.rule(cell.col, cell.row, text);
  if (!entry) {
    if (refused_++ == 0) first_refused_ = text;
    return;
  }
  sheet_.SetCellText(cell.col, cell.row, entry->text);
  sheet_.SetCellTag(cell.col, cell.row, entry->tag);
}

void RangeEdit::empty(const CellRange& range) {
  fill(range, [this](CellPlace cell) { enter(cell, QString()); });
}

void RangeEdit::fill(const CellRange& range, const std::function<void(CellPlace)>& put) {
  for (int row = range.row1; (row = sheet_.NextShownRow(row)) <= range.row2; ++row) {
    reportProgress(row - range.row1, range.row2 - range.row1 + 1);
    for (int col = range.col1; col <= range.col2; ++col) put({col, row});
  }
}

void RangeEdit::paste(const CellRange& range, const Source& source) {
  if (source.rows == 1 && source.cols(0) == 1) {
    fill(range, [&](CellPlace cell) { source.put(0, 0, cell); });
    return;
  }
  int row = sheet_.NextShownRow(range.row1);
  for (int from = 0; from < source.rows; ++from, row = sheet_.NextShownRow(row + 1)) {
    reportProgress(from, source.rows);
    if (row >= sheet_.Rows() && settings_.addsRows) sheet_.SetRows(row + source.rows - from);
    if (row >= sheet_.Rows()) ++lost_rows_;
    const int cols = source.cols(from);
    lost_cols_ = std::max(lost_cols_, range.col1 + cols - sheet_.Cols());
    for (int col = 0; col < cols; ++col) source.put(col, from, {range.col1 + col, row});
  }
}

void RangeEdit::pasteTexts(const CellRange& range, const TextTable& table) {
  const auto textsOf = [&](int row) -> const QStringList& {
    return table[static_cast<std::size_t>(row)];
  };
  paste(range, {static_cast<int>(table.size()),
                [&](int row) { return static_cast<int>(textsOf(row).size()); },
                [&](int col, int row, CellPlace to) {
                  enter(to, QString(textsOf(row)[col]).replace(u'\n', kLineBreak));
                }});
}

void RangeEdit::pasteCells(const CellRange& range, const Sheet& from, const CellRange& cells) {
  std::vector<int> rows;
  for (int row = cells.row1; (row = from.NextShownRow(row)) <= cells.row2; ++row) {
    rows.push_back(row);
  }
  paste(range, {static_cast<int>(rows.size()), [&](int) { return cells.col2 - cells.col1 + 1; },
                [&](int col, int row, CellPlace to) {
                  pasteCell(from, {cells.col1 + col, rows[static_cast<std::size_t>(row)]}, to);
                }});
}

// Where the rule has its say, a tag means the same only in a column of the same heading.
bool RangeEdit::keepsTag(const Sheet& from, CellPlace cell, CellPlace to) const {
  if (!settings_.rule) return true;
  return !from.CellTag(cell.col, cell.row).isEmpty() &&
         from.GetCellText(cell.col, kHeadingRow) == sheet_.GetCellText(to.col, kHeadingRow);
}

void RangeEdit::pasteCell(const Sheet& from, CellPlace cell, CellPlace to) {
  if (!isOpen(to)) return;
  if (keepsTag(from, cell, to)) return copyCell(from, cell, sheet_, to);
  const int before = refused_;
  enter(to, from.GetCellText(cell.col, cell.row));
  if (refused_ > before) return;
  sheet_.SetCellSettings(to.col, to.row, from.SettingsAt(cell.col, cell.row));
}

}  // namespace vellora
