#include "grid/surface/grid_commands.h"

#include "grid/surface/grid_surface_parts.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMetaMethod>

namespace vellora {
namespace {

QList<QKeySequence> redoKeys() {
  return QList<QKeySequence>{QKeySequence(Qt::CTRL | Qt::Key_Y)} +
         QKeySequence::keyBindings(QKeySequence::Redo);
}

QString named(const QString& command, const QString& step) {
  return step.isEmpty() ? command : command + u' ' + step;
}

}  // namespace

// Whether one can be used is asked only of the one that is wanted: looking at the clipboard can
// mean waiting for another program.
GridCommands GridSurface::Parts::commands() {
  const auto canCopy = [this] { return !selected().isEmpty(); };
  const auto canEdit = [this] { return isAnyOpen(selected()); };
  const auto canUndo = [this] { return look.isEditable && edits.canUndo(); };
  const auto canRedo = [this] { return look.isEditable && edits.canRedo(); };
  const auto keysOf = [](QKeySequence::StandardKey key) { return QKeySequence::keyBindings(key); };
  return {
      {named(u"撤消"_qs, edits.undoName()), keysOf(QKeySequence::Undo), canUndo,
       [this] { undo(); }},
      {named(u"恢复"_qs, edits.redoName()), redoKeys(), canRedo, [this] { redo(); }, true},
      {u"剪切"_qs, keysOf(QKeySequence::Cut), canEdit, [this] { cut(); }},
      {u"复制"_qs, keysOf(QKeySequence::Copy), canCopy, [this] { copy(); }},
      {u"粘贴"_qs, keysOf(QKeySequence::Paste), [this] { return canPaste(); }, [this] { paste(); }},
      {u"清除"_qs, {Qt::Key_Delete, Qt::Key_Backspace}, canEdit, [this] { empty(); }, true},
      {u"重复本行"_qs,
       {Qt::CTRL | Qt::Key_D},
       [this] { return canDuplicate(); },
       [this] { duplicateRow(); },
       true},
      {u"全选"_qs, keysOf(QKeySequence::SelectAll), canCopy, [this] { grid.selectAll(); }},
      {u"打印..."_qs, {}, [] { return true; }, [this] { print(); }},
  };
}

bool GridSurface::Parts::canDuplicate() const {
  return look.isEditable && !current().isNone() &&
         grid.isSignalConnected(QMetaMethod::fromSignal(&GridSurface::RowDuplicate));
}

bool GridSurface::Parts::useCommandKey(const QKeyEvent& event) {
  const QKeySequence keys(event.keyCombination());
  for (const GridCommand& command : commands()) {
    if (!command.keys.contains(keys)) continue;
    const bool isEnabled = command.isEnabled();
    if (isEnabled) command.run();
    return isEnabled;
  }
  return false;
}

void GridSurface::contextMenuEvent(QContextMenuEvent* event) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const GridCommand& command : parts_->commands()) {
    QAction* action = menu->addAction(command.text, this, command.run);
    action->setShortcuts(command.keys);
    action->setEnabled(command.isEnabled());
    if (command.endsGroup) menu->addSeparator();
  }
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint cell = visualRect(currentIndex()).bottomLeft();
  menu->popup(byKey ? viewport()->mapToGlobal(cell) : event->globalPos());
}

}  // namespace vellora
