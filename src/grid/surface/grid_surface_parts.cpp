#include "grid/surface/grid_surface_parts.h"

#include "grid/surface/cell_editor.h"
#include "grid/surface/clipboard_text.h"
#include "grid/surface/heading_strip.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QScopedValueRollback>

namespace vellora {

GridSurface::Parts::Parts(GridSurface& surface)
    : grid(surface),
      model(book, look,
            [this](int col, int row, const QString& text) {
              enter({col, row}, text);
            }),
      delegate(look),
      cols((setUpHeaders(), *surface.horizontalHeader())),
      rows(*surface.verticalHeader()),
      sizes(surface),
      edgeDrag(*surface.horizontalHeader(), *surface.verticalHeader(), cols, rows) {
  later.setSingleShot(true);
  connect(&later, &QTimer::timeout, &grid, [this] { showChanges(); });
  connect(&delegate, &CellDelegate::left, &grid,
          [this](int key, Qt::KeyboardModifiers modifiers) { moveBy(key, modifiers); });
  connect(&delegate, &CellDelegate::aboutToLoseKey, &grid, [this] { keepTypedText(); });
  connect(&sizes, &HeaderSizes::columnDragged, &grid,
          [this](int col, int width) { writeSize(&Sheet::SetColumnWidth, col, width); });
  connect(&sizes, &HeaderSizes::rowDragged, &grid,
          [this](int row, int height) { writeSize(&Sheet::SetRowHeight, row, height); });
}

void GridSurface::Parts::setUpHeaders() {
  grid.setHorizontalHeader(new HeadingStrip(Qt::Horizontal, book, look, texts));
  grid.setVerticalHeader(new HeadingStrip(Qt::Vertical, book, look, texts));
  grid.verticalHeader()->hide();
  if (auto* corner = grid.findChild<QAbstractButton*>()) corner->setAccessibleName(u"全选"_qs);
}

// A size is no edit of the content.
void GridSurface::Parts::writeSize(void (Sheet::*set)(int, int), int section, int size) {
  edits.raise([&] { (book.sheet().*set)(section, size); });
  showChangesLater();
  grid.viewport()->update();
}

void GridSurface::Parts::sync() {
  const CellPlace lost = loseCurrentIn(book.sheet().Rows(), model.rowCount() - 1);
  model.sync();
  if (!lost.isNone()) entered(lost.row, -1);
}

void GridSurface::Parts::rowsInserted(int row, int count) {
  model.announceInserted(row, count);
  showChangesLater();
}

void GridSurface::Parts::rowsDeleted(int row, int count) {
  const CellPlace lost = loseCurrentIn(row, row + count - 1);
  model.announceRemoved(row, count);
  showChangesLater();
  if (lost.isNone()) return;
  const CellPlace next{lost.col, std::min(lost.row, model.rowCount() - 1)};
  {
    const QScopedValueRollback quiet(isQuiet, true);
    if (next.row >= 0) makeCurrent(next);
  }
  if (next.row != lost.row) entered(lost.row, next.row);
}

// Where the current cell was, if it was in these rows: Qt would choose another row by itself.
CellPlace GridSurface::Parts::loseCurrentIn(int firstRow, int lastRow) {
  const CellPlace place = current();
  if (place.isNone() || place.row < firstRow || place.row > lastRow) return {};
  const QScopedValueRollback quiet(isQuiet, true);
  dropCurrent();
  return place;
}

void GridSurface::Parts::entered(int previousRow, int row) {
  edits.raise([&] { emit grid.CellEntered(previousRow, row); });
}

void GridSurface::Parts::showChanges() {
  later.stop();
  sizes.applyDefaultHeight(book.sheet());
  sync();
  sizes.apply(book.sheet());
  if (shownRevision == book.sheet().revision()) return;
  shownRevision = book.sheet().revision();
  model.announceChanged();
}

void GridSurface::Parts::showChangesLater() {
  if (!later.isActive()) later.start(0);
}

void GridSurface::Parts::makeCurrent(CellPlace place) {
  grid.selectionModel()->setCurrentIndex(indexOf(place), QItemSelectionModel::ClearAndSelect);
}

void GridSurface::Parts::dropCurrent() {
  grid.selectionModel()->clear();
}

CellRange GridSurface::Parts::selected() const {
  const QItemSelection selection = grid.selectionModel()->selection();
  if (!selection.isEmpty()) return CellRange::of(selection.front());
  const CellPlace cell = current();
  return cell.isNone() ? CellRange() : CellRange::between(cell, cell);
}

void GridSurface::Parts::extendSelection(CellPlace corner) {
  if (current().isNone()) return makeCurrent(corner);
  const CellRange range = CellRange::between(current(), corner);
  grid.selectionModel()->select(
      QItemSelection(indexOf({range.col1, range.row1}), indexOf({range.col2, range.row2})),
      QItemSelectionModel::ClearAndSelect);
  grid.scrollTo(indexOf(corner));
}

CellPlace GridSurface::Parts::movingCorner() const {
  const CellRange range = selected();
  const CellPlace cell = current();
  if (!range.contains(cell)) return cell;
  return {cell.col == range.col1 ? range.col2 : range.col1,
          cell.row == range.row1 ? range.row2 : range.row1};
}

int GridSurface::Parts::rowsPerPage() const {
  const int room = grid.viewport()->height() - rows.band();
  return std::max(1, room / std::max(1, grid.verticalHeader()->defaultSectionSize()) - 1);
}

void GridSurface::Parts::undo() {
  goTo(edits.undo());
}

void GridSurface::Parts::redo() {
  goTo(edits.redo());
}

void GridSurface::Parts::goTo(CellPlace place) {
  showChanges();
  if (cols.has(place.col) && rows.has(place.row)) makeCurrent(place);
}

void GridSurface::Parts::print() {
  if (rows.frozen() > 0) {
    grid.PrintBoard(true);
  } else {
    grid.PrintSheet(false);
  }
}

}  // namespace vellora
