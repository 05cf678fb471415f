#include "grid/surface/grid_surface.h"

#include "grid/surface/grid_surface_parts.h"

#include <QHeaderView>

namespace vellora {

GridSurface::GridSurface(QWidget* parent)
    : QTableView(parent), parts_(std::make_unique<Parts>(*this)) {
  setModel(&parts_->model);
  setItemDelegate(&parts_->delegate);
  setLayoutDirection(Qt::LeftToRight);
  setSelectionMode(ContiguousSelection);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setEditTriggers(NoEditTriggers);
  viewport()->setMouseTracking(true);
  parts_->look.colours = coloursOf(palette());
  parts_->showChanges();
}

// The view lets go of its parts before they go.
GridSurface::~GridSurface() {
  setModel(nullptr);
  setItemDelegate(nullptr);
}

int GridSurface::CurrentRow() const {
  const int row = parts_->current().row;
  return row < Rows() ? row : -1;
}

int GridSurface::CurrentCol() const {
  return CurrentRow() < 0 ? -1 : parts_->current().col;
}

void GridSurface::SetCurrentCell(int col, int row) {
  parts_->showChanges();
  if (parts_->cols.has(col) && parts_->rows.has(row)) {
    parts_->makeCurrent({col, row});
  } else {
    parts_->dropCurrent();
  }
}

void GridSurface::SelectRange(int col1, int row1, int col2, int row2) {
  parts_->sync();
  const CellRange range = CellRange::between({col1, row1}, {col2, row2}).within(Cols(), Rows());
  if (range.isEmpty()) return;
  selectionModel()->select(QItemSelection(parts_->indexOf({range.col1, range.row1}),
                                          parts_->indexOf({range.col2, range.row2})),
                           QItemSelectionModel::ClearAndSelect);
}

void GridSurface::Redraw() {
  parts_->shownRevision = 0;
  parts_->showChanges();
  viewport()->update();
}

void GridSurface::SetRedrawSwitch(bool on) {
  setUpdatesEnabled(on);
}

bool GridSurface::RedrawSwitch() const {
  return updatesEnabled();
}

void GridSurface::Focus() {
  setFocus(Qt::OtherFocusReason);
}

void GridSurface::setHeadingStripVisible(bool on) {
  horizontalHeader()->setVisible(on);
}

void GridSurface::setRowNumbersVisible(bool on) {
  verticalHeader()->setVisible(on);
}

void GridSurface::setFrozen(int cols, int rows) {
  parts_->look.frozenCols = std::max(cols, 0);
  parts_->look.frozenRows = std::max(rows, 0);
  parts_->cols.setFrozen(cols);
  parts_->rows.setFrozen(rows);
  viewport()->update();
}

void GridSurface::setSharesWidth(bool on) {
  parts_->sizes.setSharesWidth(on);
  parts_->showChangesLater();
}

void GridSurface::setEditable(bool on) {
  parts_->look.isEditable = on;
  setTabKeyNavigation(on);
  setEditTriggers(on ? AnyKeyPressed : NoEditTriggers);
}

void GridSurface::setColumnLocked(int col, bool locked) {
  if (locked) {
    parts_->look.lockedCols.insert(col);
  } else {
    parts_->look.lockedCols.erase(col);
  }
}

void GridSurface::setEntryRule(const EntryRule& rule) {
  parts_->rule = rule;
}

void GridSurface::setGrowsOnPaste(bool on) {
  parts_->growsOnPaste = on;
}

void GridSurface::setDocumentName(const std::function<QString()>& name) {
  parts_->documentName = name;
}

void GridSurface::setWorkRunner(const WorkRunner& run) {
  parts_->runWork = run;
}

void GridSurface::setColours(const GridColours& colours) {
  parts_->look.colours = colours;
  parts_->hasSkin = true;
  viewport()->update();
  QPalette headings = palette();
  for (const auto role : {QPalette::Button, QPalette::Window}) {
    headings.setColor(role, colours.headingPaper);
  }
  horizontalHeader()->setPalette(headings);
  verticalHeader()->setPalette(headings);
}

void GridSurface::markColumn(int col) {
  parts_->look.markedCol = col;
  viewport()->update();
}

void GridSurface::markRows(std::vector<RowMark> marks) {
  parts_->look.markedRows = std::move(marks);
  viewport()->update();
}

const std::vector<RowMark>& GridSurface::markedRows() const {
  return parts_->look.markedRows;
}

}  // namespace vellora
