// The mouse of a SheetView.

#include "grid/surface/sheet_view.h"

#include <QMouseEvent>

namespace vellora {
namespace {

constexpr int kDragScrollInterval = 40;  // milliseconds
constexpr int kBeyondEdgeInterval = 700;
constexpr int kEdge = 24;  // pixels

}  // namespace

void SheetView::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  sync();
  if (event->button() == Qt::LeftButton && edgeDrag_.begin(point)) return;
  const CellPlace cell = cellAt(point);
  const bool selects = event->modifiers().testFlag(Qt::ShiftModifier) && !current().isNone();
  isClick_ = false;
  pressed_ = {};
  lastPressed_ = {};
  if (cell.isNone()) return event->ignore();
  if (event->button() != Qt::LeftButton) {
    if (!selected().contains(cell)) makeCurrent(cell);
    return;
  }
  pressed_ = cell;
  lastPressed_ = cell;
  isClick_ = !selects;
  if (selects) {
    extendSelection(cell);
  } else {
    makeCurrent(cell);
  }
}

void SheetView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (!event->buttons().testFlag(Qt::LeftButton)) edgeDrag_.end();
  viewport()->setCursor(edgeDrag_.cursorAt(point));
  if (edgeDrag_.isActive()) return edgeDrag_.move(point);
  if (!event->buttons().testFlag(Qt::LeftButton) || pressed_.isNone()) return;
  const CellPlace cell = cellAt(point);
  if (isCellDragged_) return dragCell(*event);
  if (cell == pressed_ && isClick_) return;
  if (isClick_ && cellDrag_ && cellDrag_->beginDrag(pressed_)) {
    isClick_ = false;
    isCellDragged_ = true;
    return dragCell(*event);
  }
  isClick_ = false;
  if (cell.isNone() || !viewport()->rect().contains(point)) {
    if (!dragScroll_.isActive()) dragScroll_.start(kDragScrollInterval, this);
  } else {
    dragScroll_.stop();
    extendSelection(cell);
  }
}

void SheetView::mouseReleaseEvent(QMouseEvent* event) {
  dragScroll_.stop();
  const bool wasEdge = edgeDrag_.isActive();
  edgeDrag_.end();
  if (wasEdge || event->button() != Qt::LeftButton) return;
  const CellPlace cell = std::exchange(pressed_, {});
  if (std::exchange(isCellDragged_, false)) {
    beyondEdge_.stop();
    viewport()->unsetCursor();
    cellDrag_->dropOn(cellAt(event->position().toPoint()),
                      event->modifiers().testFlag(Qt::ControlModifier));
    return;
  }
  if (!std::exchange(isClick_, false)) return;
  if (cellAt(event->position().toPoint()) != cell) return;
  emit CellClick(cell.col, cell.row);
}

void SheetView::dragCell(const QMouseEvent& event) {
  const int x = event.position().toPoint().x();
  const bool copies = event.modifiers().testFlag(Qt::ControlModifier);
  viewport()->setCursor(copies ? Qt::DragCopyCursor : Qt::DragMoveCursor);
  const bool isNearEdge = x < kEdge || x > viewport()->width() - kEdge;
  if (!isNearEdge) beyondEdge_.stop();
  if (isNearEdge && !beyondEdge_.isActive()) beyondEdge_.start(kBeyondEdgeInterval, this);
  cellDrag_->dragOver(cellAt(event.position().toPoint()), copies, event.globalPosition().toPoint());
}

bool SheetView::cancelCellDrag() {
  if (!std::exchange(isCellDragged_, false)) return false;
  pressed_ = {};
  beyondEdge_.stop();
  viewport()->unsetCursor();
  cellDrag_->cancelDrag();
  return true;
}

// Without its first half in this grid, which another window got, it is none.
void SheetView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (event->button() != Qt::LeftButton) return;
  if (const EdgeDrag::Edge edge = edgeDrag_.edgeAt(point)) {
    if (edge.header == &colHeader_) {
      resizeColumnToContents(edge.section);
    } else {
      resizeRowToContents(edge.section);
    }
    return;
  }
  const CellPlace first = std::exchange(lastPressed_, {});
  if (first.isNone()) return;
  if (cellAt(point) != first) return mousePressEvent(event);
  openCell(first);
}

// What the mouse does from now on began in another window.
void SheetView::focusOutEvent(QFocusEvent* event) {
  cancelCellDrag();
  pressed_ = {};
  lastPressed_ = {};
  isClick_ = false;
  dragScroll_.stop();
  edgeDrag_.end();
  QTableView::focusOutEvent(event);
}

// Scrolls on while the user holds the mouse beyond the edge.
void SheetView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == beyondEdge_.timerId()) {
    const int x = viewport()->mapFromGlobal(QCursor::pos()).x();
    return cellDrag_->dragBeyond(x < viewport()->width() / 2 ? -1 : 1);
  }
  if (event->timerId() != dragScroll_.timerId()) return QTableView::timerEvent(event);
  const QPoint mouse = viewport()->mapFromGlobal(QCursor::pos());
  const QRect room = viewport()->rect();
  const QPoint inside(std::clamp(mouse.x(), 0, room.right()),
                      std::clamp(mouse.y(), 0, room.bottom()));
  CellPlace corner = cellAt(inside);
  const CellPlace old = movingCorner();
  if (corner.isNone()) return;
  if (mouse.y() < 0) corner.row = std::max(0, old.row - 1);
  if (mouse.y() > room.bottom()) corner.row = std::min(old.row + 1, model_.rowCount() - 1);
  if (mouse.x() < 0) corner.col = std::max(0, old.col - 1);
  if (mouse.x() > room.right()) corner.col = std::min(old.col + 1, model_.columnCount() - 1);
  extendSelection(corner);
}

}  // namespace vellora
