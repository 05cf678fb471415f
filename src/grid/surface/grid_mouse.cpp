// The mouse of a GridSurface.

#include "grid/surface/cell_editor.h"
#include "grid/surface/grid_surface_parts.h"

#include <QMouseEvent>
#include <QScrollBar>

namespace vellora {
namespace {

constexpr int kDragScrollInterval = 40;  // milliseconds

}  // namespace

void GridSurface::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  parts_->sync();
  if (event->button() == Qt::LeftButton && parts_->edgeDrag.begin(point)) return;
  const CellPlace cell = parts_->cellAt(point);
  const bool selects =
      event->modifiers().testFlag(Qt::ShiftModifier) && !parts_->current().isNone();
  parts_->isClick = false;
  parts_->pressed = {};
  parts_->lastPressed = {};
  if (cell.isNone()) return event->ignore();
  if (event->button() != Qt::LeftButton) {
    if (!parts_->selected().contains(cell)) parts_->makeCurrent(cell);
    return;
  }
  parts_->pressed = cell;
  parts_->lastPressed = cell;
  parts_->isClick = !selects;
  if (selects) {
    parts_->extendSelection(cell);
  } else {
    parts_->makeCurrent(cell);
  }
}

void GridSurface::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (!event->buttons().testFlag(Qt::LeftButton)) parts_->edgeDrag.end();
  viewport()->setCursor(parts_->edgeDrag.cursorAt(point));
  if (parts_->edgeDrag.isActive()) return parts_->edgeDrag.move(point);
  if (!event->buttons().testFlag(Qt::LeftButton) || parts_->pressed.isNone()) return;
  const CellPlace cell = parts_->cellAt(point);
  if (cell == parts_->pressed && parts_->isClick) return;
  parts_->isClick = false;
  if (cell.isNone() || !viewport()->rect().contains(point)) {
    if (!parts_->dragScroll.isActive()) parts_->dragScroll.start(kDragScrollInterval, this);
  } else {
    parts_->dragScroll.stop();
    parts_->extendSelection(cell);
  }
}

void GridSurface::mouseReleaseEvent(QMouseEvent* event) {
  parts_->dragScroll.stop();
  const bool wasEdge = parts_->edgeDrag.isActive();
  parts_->edgeDrag.end();
  if (wasEdge || event->button() != Qt::LeftButton) return;
  const CellPlace cell = std::exchange(parts_->pressed, {});
  if (!std::exchange(parts_->isClick, false)) return;
  if (parts_->cellAt(event->position().toPoint()) != cell) return;
  emit CellClick(cell.col, cell.row);
}

// Without its first half in this grid, which another window got, it is none.
void GridSurface::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (event->button() != Qt::LeftButton) return;
  if (const EdgeDrag::Edge edge = parts_->edgeDrag.edgeAt(point)) {
    if (edge.header == horizontalHeader()) {
      resizeColumnToContents(edge.section);
    } else {
      resizeRowToContents(edge.section);
    }
    return;
  }
  const CellPlace first = std::exchange(parts_->lastPressed, {});
  if (first.isNone()) return;
  if (parts_->cellAt(point) != first) return mousePressEvent(event);
  if (CellEditor* open = parts_->openEditor(first)) open->putCursorAtEnd();
}

// What the mouse does from now on began in another window.
void GridSurface::focusOutEvent(QFocusEvent* event) {
  parts_->pressed = {};
  parts_->lastPressed = {};
  parts_->isClick = false;
  parts_->dragScroll.stop();
  parts_->edgeDrag.end();
  QTableView::focusOutEvent(event);
}

// Scrolls on while the user holds the mouse beyond the edge.
void GridSurface::timerEvent(QTimerEvent* event) {
  if (event->timerId() != parts_->dragScroll.timerId()) return QTableView::timerEvent(event);
  const QPoint mouse = viewport()->mapFromGlobal(QCursor::pos());
  const QRect room = viewport()->rect();
  const QPoint inside(std::clamp(mouse.x(), 0, room.right()),
                      std::clamp(mouse.y(), 0, room.bottom()));
  CellPlace corner = parts_->cellAt(inside);
  const CellPlace old = parts_->movingCorner();
  if (corner.isNone()) return;
  if (mouse.y() < 0) corner.row = std::max(0, old.row - 1);
  if (mouse.y() > room.bottom()) corner.row = std::min(old.row + 1, parts_->model.rowCount() - 1);
  if (mouse.x() < 0) corner.col = std::max(0, old.col - 1);
  if (mouse.x() > room.right()) corner.col = std::min(old.col + 1, parts_->model.columnCount() - 1);
  parts_->extendSelection(corner);
}

}  // namespace vellora
