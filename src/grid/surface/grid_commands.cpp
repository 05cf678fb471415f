#include "grid/surface/grid_commands.h"

#include "grid/surface/grid_surface_parts.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMetaMethod>

namespace vellora {
namespace {

QList<QKeySequence> redoKeys() {
  return QList<QKeySequence>{QKeySequence(Qt::CTRL | Qt::Key_Y)} +
         QKeySequence::keyBindings(QKeySequence::Redo);
}

}  // namespace

GridCommands GridSurface::Parts::commands() {
  const bool canCopy = !selected().isEmpty();
  const bool canEdit = look.isEditable && canCopy;
  const bool canPaste = canEdit && !QGuiApplication::clipboard()->text().isEmpty();
  const bool canDuplicate =
      canEdit && grid.isSignalConnected(QMetaMethod::fromSignal(&GridSurface::RowDuplicate));
  const auto keysOf = [](QKeySequence::StandardKey key) { return QKeySequence::keyBindings(key); };
  return {
      {u"撤消"_qs, keysOf(QKeySequence::Undo), look.isEditable && edits.canUndo(),
       [this] { undo(); }},
      {u"恢复"_qs, redoKeys(), look.isEditable && edits.canRedo(), [this] { redo(); }, true},
      {u"剪切"_qs, keysOf(QKeySequence::Cut), canEdit, [this] { cut(); }},
      {u"复制"_qs, keysOf(QKeySequence::Copy), canCopy, [this] { copy(); }},
      {u"粘贴"_qs, keysOf(QKeySequence::Paste), canPaste, [this] { paste(); }},
      {u"清除"_qs, {Qt::Key_Delete, Qt::Key_Backspace}, canEdit, [this] { empty(); }, true},
      {u"重复本行"_qs, {Qt::CTRL | Qt::Key_D}, canDuplicate, [this] { duplicateRow(); }, true},
      {u"全选"_qs, keysOf(QKeySequence::SelectAll), canCopy, [this] { grid.selectAll(); }},
      {u"打印..."_qs, {}, true, [this] { print(); }},
  };
}

bool GridSurface::Parts::useCommandKey(const QKeyEvent& event) {
  const QKeySequence keys(event.keyCombination());
  for (const GridCommand& command : commands()) {
    if (!command.keys.contains(keys)) continue;
    if (command.isEnabled) command.run();
    return command.isEnabled;
  }
  return false;
}

void GridSurface::contextMenuEvent(QContextMenuEvent* event) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const GridCommand& command : parts_->commands()) {
    QAction* action = menu->addAction(command.text, this, command.run);
    action->setShortcuts(command.keys);
    action->setEnabled(command.isEnabled);
    if (command.endsGroup) menu->addSeparator();
  }
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint cell = visualRect(currentIndex()).bottomLeft();
  menu->popup(byKey ? viewport()->mapToGlobal(cell) : event->globalPos());
}

}  // namespace vellora
