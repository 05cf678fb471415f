#include "grid/surface/grid_surface.h"

#include "grid/files/workbook_file.h"
#include "grid/surface/sheet_model.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QTimer>

namespace vellora {

class GridSurface::Parts {
 public:
  explicit Parts(GridSurface* surface) : model(workbook, surface) {}
  Workbook workbook;
  SheetModel model;
  Sheet copied;
  bool redrawSwitch = true;
  bool pending = false;
};

GridSurface::GridSurface(QWidget* parent)
    : QTableView(parent), parts_(std::make_unique<Parts>(this)) {
  setModel(&parts_->model);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& now, const QModelIndex& before) {
            if (now.row() != before.row()) emit CellEntered(before.row(), now.row());
          });
  connect(this, &QTableView::clicked, this,
          [this](const QModelIndex& index) { emit CellClick(index.column(), index.row()); });
}

GridSurface::~GridSurface() = default;

Workbook& GridSurface::workbook() {
  return parts_->workbook;
}
const Workbook& GridSurface::workbook() const {
  return parts_->workbook;
}
int GridSurface::Cols() const {
  return sheet().Cols();
}
int GridSurface::Rows() const {
  return sheet().Rows();
}
QString GridSurface::GetCellText(int col, int row) const {
  return sheet().GetCellText(col, row);
}
QString GridSurface::CellTag(int col, int row) const {
  return sheet().CellTag(col, row);
}
void GridSurface::SetCellText(int col, int row, const QString& text) {
  sheet().SetCellText(col, row, text);
  parts_->pending = true;
}
void GridSurface::SetCellTag(int col, int row, const QString& tag) {
  sheet().SetCellTag(col, row, tag);
  parts_->pending = true;
}
void GridSurface::SetCellValue(int col, int row, const QVariant& value) {
  sheet().SetCellValue(col, row, value);
  parts_->pending = true;
}
void GridSurface::SetCellAlign(int col, int row, int flags) {
  sheet().SetCellAlign(col, row, flags);
  parts_->pending = true;
}
void GridSurface::SetCellInput(int col, int row, int mode) {
  sheet().SetCellInput(col, row, mode);
  parts_->pending = true;
}
void GridSurface::SetCellOption(int col, int row, int option) {
  sheet().SetCellOption(col, row, option);
  parts_->pending = true;
}
void GridSurface::SetCellWrap(int col, int row, bool on) {
  sheet().SetCellWrap(col, row, on);
  parts_->pending = true;
}
void GridSurface::SetCellColors(int col, int row, PackedColour text, PackedColour back) {
  sheet().SetCellColors(col, row, text, back);
  parts_->pending = true;
}
void GridSurface::SetCellFont(int col, int row, int size, int style, const QString& face) {
  sheet().SetCellFont(col, row, size, style, face);
  parts_->pending = true;
}
void GridSurface::SetDefaultFont(int size, int style, const QString& face) {
  sheet().SetDefaultFont(size, style, face);
  parts_->pending = true;
}
void GridSurface::SetColumnWidth(int col, int width) {
  sheet().SetColumnWidth(col, width);
  parts_->pending = true;
}
void GridSurface::SetRowHeight(int row, int height) {
  sheet().SetRowHeight(row, height);
  parts_->pending = true;
}
void GridSurface::SetDefaultRowHeight(int height) {
  sheet().SetDefaultRowHeight(height);
  parts_->pending = true;
}
void GridSurface::InsertRows(int row, int count) {
  sheet().InsertRows(row, count);
  parts_->pending = true;
}
void GridSurface::DeleteRows(int row, int count) {
  sheet().DeleteRows(row, count);
  parts_->pending = true;
}
void GridSurface::SetCols(int count) {
  sheet().SetCols(count);
  parts_->pending = true;
}
void GridSurface::SetRows(int count) {
  sheet().SetRows(count);
  parts_->pending = true;
}
void GridSurface::SetRangeBorder(int col1, int row1, int col2, int row2, int kind, int width,
                                 PackedColour colour) {
  sheet().SetRangeBorder(col1, row1, col2, row2, kind, width, colour);
  parts_->pending = true;
}

void GridSurface::InsertRowsBelowCurrent(int count) {
  InsertRows(CurrentRow() + 1, count);
}
void GridSurface::HideRow(int, int row) {
  sheet().HideRow(row);
}
int GridSurface::CurrentRow() const {
  return currentIndex().row();
}
int GridSurface::CurrentCol() const {
  return currentIndex().column();
}
void GridSurface::SetCurrentCell(int col, int row) {
  parts_->model.reconcile();
  const QModelIndex index = parts_->model.index(row, col);
  if (index.isValid()) setCurrentIndex(index);
}
void GridSurface::SelectRange(int, int, int, int) {}
void GridSurface::CopySelection() {}
void GridSurface::PasteAtCell(int, int, int) {}
void GridSurface::EndCopy() {}
void GridSurface::Redraw() {
  parts_->model.reconcile();
  parts_->pending = false;
  for (int col = 0; col < Cols(); ++col) {
    if (const auto width = sheet().ColumnWidth(col)) setColumnWidth(col, *width);
  }
  verticalHeader()->setDefaultSectionSize(sheet().DefaultRowHeight());
}
void GridSurface::SetRedrawSwitch(bool on) {
  parts_->redrawSwitch = on;
  viewport()->setUpdatesEnabled(on);
}
bool GridSurface::RedrawSwitch() const {
  return parts_->redrawSwitch;
}
void GridSurface::OpenFile(const QString& path) {
  parts_->workbook = readWorkbookFile(path);
}
void GridSurface::SaveFile(const QString& path) const {
  writeWorkbookFile(workbook(), path);
}
void GridSurface::PrintSheet(bool) {}
void GridSurface::PrintBoard(bool) {}
void GridSurface::AddSheet(const QString& name, int count) {
  while (count-- > 0) workbook().AddSheet(name);
}
void GridSurface::SetSheetName(const QString& name, int sheet) {
  workbook().SetSheetName(name, sheet);
}
void GridSurface::SetCurrentSheet(int sheet) {
  workbook().SetCurrentSheet(sheet);
}
int GridSurface::SheetCount() const {
  return workbook().SheetCount();
}
void GridSurface::Focus() {
  setFocus();
}
void GridSurface::setHeadingStripVisible(bool on) {
  horizontalHeader()->setVisible(on);
}
void GridSurface::setRowNumbersVisible(bool on) {
  verticalHeader()->setVisible(on);
}
void GridSurface::setFrozen(int, int) {}
void GridSurface::setSharesWidth(bool on) {
  horizontalHeader()->setSectionResizeMode(on ? QHeaderView::Stretch : QHeaderView::Interactive);
}
void GridSurface::setEditable(bool on) {
  parts_->model.setEditable(on);
}
void GridSurface::setDocumentName(const QString&) {}
void GridSurface::setColours(const GridColours&) {}
void GridSurface::markColumn(int) {}
void GridSurface::beginUndoStep(const QString&) {}
void GridSurface::endUndoStep() {}
void GridSurface::clearUndo() {}
bool GridSurface::isEdited() const {
  return false;
}

}  // namespace vellora
