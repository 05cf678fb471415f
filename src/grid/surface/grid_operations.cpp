// The operations of a GridSurface on its workbook.

#include "grid/files/workbook_file.h"
#include "grid/print/print_preview.h"
#include "grid/surface/grid_surface_parts.h"
#include "grid/surface/range_edit.h"

namespace vellora {

Workbook& GridSurface::workbook() {
  return parts_->book;
}

const Workbook& GridSurface::workbook() const {
  return parts_->book;
}

int GridSurface::Cols() const {
  return sheet().Cols();
}

int GridSurface::Rows() const {
  return sheet().Rows();
}

void GridSurface::SetCols(int count) {
  sheet().SetCols(count);
  parts_->sync();
  parts_->showChangesLater();
}

void GridSurface::SetRows(int count) {
  sheet().SetRows(count);
  parts_->sync();
  parts_->showChangesLater();
}

void GridSurface::SetCellText(int col, int row, const QString& text) {
  sheet().SetCellText(col, row, text);
  parts_->showChangesLater();
}

QString GridSurface::GetCellText(int col, int row) const {
  return sheet().GetCellText(col, row);
}

void GridSurface::SetCellTag(int col, int row, const QString& tag) {
  sheet().SetCellTag(col, row, tag);
}

QString GridSurface::CellTag(int col, int row) const {
  return sheet().CellTag(col, row);
}

void GridSurface::SetCellValue(int col, int row, const QVariant& value) {
  sheet().SetCellValue(col, row, value);
  parts_->showChangesLater();
}

void GridSurface::SetCellAlign(int col, int row, int flags) {
  sheet().SetCellAlign(col, row, flags);
  parts_->showChangesLater();
}

void GridSurface::SetCellInput(int col, int row, int mode) {
  sheet().SetCellInput(col, row, mode);
}

void GridSurface::SetCellOption(int col, int row, int option) {
  sheet().SetCellOption(col, row, option);
}

void GridSurface::SetCellWrap(int col, int row, bool on) {
  sheet().SetCellWrap(col, row, on);
  parts_->showChangesLater();
}

void GridSurface::SetCellColors(int col, int row, PackedColour text, PackedColour back) {
  sheet().SetCellColors(col, row, text, back);
  parts_->showChangesLater();
}

void GridSurface::SetCellFont(int col, int row, int size, int style, const QString& face) {
  sheet().SetCellFont(col, row, size, style, face);
  parts_->showChangesLater();
}

void GridSurface::SetDefaultFont(int size, int style, const QString& face) {
  sheet().SetDefaultFont(size, style, face);
  parts_->showChangesLater();
}

void GridSurface::SetColumnWidth(int col, int width) {
  sheet().SetColumnWidth(col, width);
  parts_->showChangesLater();
}

void GridSurface::SetRowHeight(int row, int height) {
  sheet().SetRowHeight(row, height);
  parts_->showChangesLater();
}

void GridSurface::SetDefaultRowHeight(int height) {
  sheet().SetDefaultRowHeight(height);
  parts_->showChangesLater();
}

void GridSurface::HideRow(int /*unused*/, int row) {
  sheet().HideRow(row);
  parts_->showChangesLater();
}

void GridSurface::SetRangeBorder(int col1, int row1, int col2, int row2, int kind, int width,
                                 PackedColour colour) {
  sheet().SetRangeBorder(col1, row1, col2, row2, kind, width, colour);
  parts_->showChangesLater();
}

void GridSurface::InsertRows(int row, int count) {
  parts_->sync();
  const int before = Rows();
  sheet().InsertRows(row, count);
  if (Rows() > before) parts_->rowsInserted(row, Rows() - before);
}

void GridSurface::InsertRowsBelowCurrent(int count) {
  const int current = CurrentRow();
  InsertRows(current < 0 ? Rows() : current + 1, count);
}

void GridSurface::DeleteRows(int row, int count) {
  parts_->sync();
  const int before = Rows();
  sheet().DeleteRows(row, count);
  if (Rows() < before) parts_->rowsDeleted(row, before - Rows());
}

void GridSurface::CopySelection() {
  parts_->copied = sheet();
  parts_->copiedRange = parts_->selected();
}

void GridSurface::PasteAtCell(int col, int row, int /*flag*/) {
  copyCells(parts_->copied, parts_->copiedRange, sheet(), {col, row});
  parts_->showChangesLater();
}

void GridSurface::EndCopy() {
  parts_->copied = Sheet();
  parts_->copiedRange = {};
}

void GridSurface::OpenFile(const QString& path) {
  workbook() = readWorkbookFile(path);
  clearUndo();
  Redraw();
}

void GridSurface::SaveFile(const QString& path) const {
  writeWorkbookFile(workbook(), path);
}

void GridSurface::PrintSheet(bool /*board*/) {
  parts_->keepTypedText();
  workbook().pageSetup = previewSheet(sheet(), workbook().pageSetup, PrintHeadings::HeadingStrip,
                                      parts_->documentName(), this, parts_->runWork);
}

void GridSurface::PrintBoard(bool /*board*/) {
  parts_->keepTypedText();
  PageSetup setup = workbook().pageSetup;
  setup.landscape = true;
  setup.fitToOnePageWidth = true;
  workbook().pageSetup = previewSheet(sheet(), setup, PrintHeadings::FirstRow,
                                      parts_->documentName(), this, parts_->runWork);
}

void GridSurface::AddSheet(const QString& name, int count) {
  for (int i = 0; i < count; ++i) workbook().AddSheet(name);
}

void GridSurface::SetSheetName(const QString& name, int sheet) {
  workbook().SetSheetName(name, sheet);
}

void GridSurface::SetCurrentSheet(int sheet) {
  workbook().SetCurrentSheet(sheet);
  Redraw();
}

int GridSurface::SheetCount() const {
  return workbook().SheetCount();
}

void GridSurface::beginUndoStep(const QString& name) {
  parts_->edits.begin(name, parts_->current());
}

void GridSurface::endUndoStep() {
  parts_->edits.end();
}

void GridSurface::clearUndo() {
  parts_->edits.clear();
}

}  // namespace vellora
