// The keyboard of a GridSurface.

#include "grid/surface/cell_editor.h"
#include "grid/surface/grid_surface_parts.h"
#include "grid/surface/key_moves.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace vellora {
namespace {

bool isTyped(const QKeyEvent& event) {
  const bool isCommand =
      event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  return !isCommand && !event.text().isEmpty() && event.text().at(0).isPrint();
}

bool isEnter(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

// An open cell's Escape is no shortcut of the window, also while the focus is still here.
bool GridSurface::event(QEvent* event) {
  const bool isEscape = event->type() == QEvent::ShortcutOverride &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (isEscape && parts_->isEditing()) event->accept();
  return QTableView::event(event);
}

// While a cell is open, keys come here that its editor has no use for, and those that find the
// focus still in the grid, where an input method began.
void GridSurface::keyPressEvent(QKeyEvent* event) {
  event->ignore();
  if (parts_->passToEditor(*event)) return;
  if (parts_->isEditing() && !isWindowKey(*event)) return;
  parts_->keepTypedText();
  emit GridKeyDown(event);
  if (event->isAccepted() || parts_->isEditing()) return;
  const bool isUsed =
      parts_->useCommandKey(*event) || parts_->useEditKey(*event) || parts_->useMoveKey(*event);
  event->setAccepted(isUsed);
}

// What the editor has no use for comes back here.
bool GridSurface::Parts::passToEditor(QKeyEvent& event) {
  CellEditor* open = editor();
  if (!open || open->hasFocus() || isPassing || isModifierKey(event.key())) return false;
  const QScopedValueRollback passing(isPassing, true);
  open->setFocus();
  event.accept();
  QCoreApplication::sendEvent(open, &event);
  return true;
}

bool GridSurface::Parts::useMoveKey(const QKeyEvent& event) {
  return !event.modifiers().testFlag(Qt::AltModifier) && moveBy(event.key(), event.modifiers());
}

// With Ctrl, Tab goes to the next control, as it does from other boxes that use Tab themselves.
bool GridSurface::Parts::leaveBy(int key, Qt::KeyboardModifiers modifiers) {
  const bool isTab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
  if (!isTab || !modifiers.testFlag(Qt::ControlModifier)) return false;
  return grid.QWidget::focusNextPrevChild(key == Qt::Key_Tab &&
                                          !modifiers.testFlag(Qt::ShiftModifier));
}

bool GridSurface::Parts::moveBy(int key, Qt::KeyboardModifiers modifiers) {
  sync();
  if (leaveBy(key, modifiers)) return true;
  const bool selects = modifiers.testFlag(Qt::ShiftModifier) && selectsWithShift(key);
  CellPlace from = selects ? movingCorner() : current();
  if (from.isNone()) from = {0, 0};
  const auto target = targetOf(key, modifiers, from, book.sheet(), rowsPerPage());
  if (!target) return false;
  if (selects && !current().isNone()) {
    extendSelection(*target);
  } else {
    makeCurrent(current().isNone() ? from : *target);
  }
  return true;
}

// F2 opens a cell, typing replaces it; where nothing can be typed, Enter and Space pick the cell.
bool GridSurface::Parts::useEditKey(QKeyEvent& event) {
  const CellPlace cell = current();
  if (cell.isNone()) return false;
  if (!look.isEditable) {
    if (!isEnter(event.key()) && event.key() != Qt::Key_Space) return false;
    emit grid.CellActivated(cell.col, cell.row);
    return true;
  }
  if (event.key() == Qt::Key_F2) {
    CellEditor* open = openEditor(cell);
    if (open) open->putCursorAtEnd();
    return open;
  }
  return isTyped(event) && grid.edit(grid.currentIndex(), AnyKeyPressed, &event);
}

}  // namespace vellora
