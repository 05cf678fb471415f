#include "grid/surface/grid_surface.h"

#include "grid/files/excel_writer.h"
#include "grid/files/html_writer.h"
#include "grid/files/workbook_file.h"
#include "grid/surface/key_moves.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMetaMethod>
#include <QScopedValueRollback>

namespace vellora {
namespace {

template <typename Writer>
int exported(Writer write, const GridSurface& grid, const QString& path, QString* reason,
             const WorkProgress& progress) {
  try {
    const QString title = QFileInfo(path).completeBaseName();
    write(grid.sheet(), grid.workbook().pageSetup, title, path, progress);
    return 1;
  } catch (const FileError& error) {
    if (reason) *reason = error.description();
    return 0;
  } catch (const WorkCancelled&) {
    if (reason) *reason = u"已取消，原来的文件没有改动。"_qs;
    return 0;
  }
}

bool isTyped(const QKeyEvent& event) {
  const bool isCommand =
      event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  return !isCommand && !event.text().isEmpty() && event.text().at(0).isPrint();
}

bool isEnter(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

QList<QKeySequence> redoKeys() {
  return QList<QKeySequence>{QKeySequence(Qt::CTRL | Qt::Key_Y)} +
         QKeySequence::keyBindings(QKeySequence::Redo);
}

QString named(const QString& command, const QString& step) {
  return step.isEmpty() ? command : command + u' ' + step;
}

}  // namespace

GridSurface::GridSurface(QWidget* parent) : SheetView(parent) {
  setItemDelegate(&delegate_);
  setEditable(false);
  connect(&model_, &SheetModel::typed, this, [this](int col, int row, const QString& text) {
    enter({col, row}, text);
  });
  connect(&delegate_, &CellDelegate::left, this, &GridSurface::moveBy);
  connect(&delegate_, &CellDelegate::aboutToLoseKey, this, &GridSurface::keepTypedText);
}

// The view lets go of its delegate before that goes.
GridSurface::~GridSurface() {
  setItemDelegate(nullptr);
}

void GridSurface::SaveFile(const QString& path) const {
  writeWorkbookFile(workbook(), path);
}

int GridSurface::ExportHtml(const QString& path, QString* reason,
                            const WorkProgress& progress) const {
  return exported(writeHtmlFile, *this, path, reason, progress);
}

int GridSurface::ExportExcel(const QString& path, QString* reason,
                             const WorkProgress& progress) const {
  return exported(writeExcelFile, *this, path, reason, progress);
}

void GridSurface::PrintSheet(bool /*board*/) {
  printAs(workbook().pageSetup, PrintHeadings::HeadingStrip);
}

void GridSurface::PrintBoard(bool /*board*/) {
  PageSetup setup = workbook().pageSetup;
  setup.fitToOnePageWidth = true;
  PrintOptions options(PrintHeadings::FirstRow);
  options.isForTheWall = true;
  printAs(setup, options);
}

void GridSurface::printAs(const PageSetup& setup, PrintOptions options) {
  keepTypedText();
  const PageTitle title = pageTitle_();
  options.title = title.title;
  options.note = title.note;
  workbook().pageSetup = previewSheet(sheet(), setup, options, documentName_(), this, runWork_);
}

void GridSurface::print() {
  if (appearance_.frozenRows > 0) {
    PrintBoard(true);
  } else {
    PrintSheet(false);
  }
}

void GridSurface::setEditable(bool on) {
  appearance_.isEditable = on;
  setTabKeyNavigation(on);
  setEditTriggers(on ? AnyKeyPressed : NoEditTriggers);
}

void GridSurface::setColumnLocked(int col, bool locked) {
  if (locked) {
    appearance_.lockedCols.insert(col);
  } else {
    appearance_.lockedCols.erase(col);
  }
}

void GridSurface::goTo(CellPlace place) {
  showChanges();
  if (has(place)) makeCurrent(place);
}

// Whether one can be used is asked only of the one that is wanted: looking at the clipboard can
// mean waiting for another program.
std::vector<GridSurface::Command> GridSurface::commands() {
  const auto canCopy = [this] { return !selected().isEmpty(); };
  const auto canEdit = [this] { return isAnyOpen(selected()); };
  const auto canUndo = [this] { return appearance_.isEditable && edits_.canUndo(); };
  const auto canRedo = [this] { return appearance_.isEditable && edits_.canRedo(); };
  const auto keysOf = [](QKeySequence::StandardKey key) { return QKeySequence::keyBindings(key); };
  return {
      {named(u"撤消"_qs, edits_.undoName()), keysOf(QKeySequence::Undo), canUndo,
       [this] { goTo(edits_.undo()); }},
      {named(u"恢复"_qs, edits_.redoName()), redoKeys(), canRedo, [this] { goTo(edits_.redo()); },
       true},
      {u"剪切"_qs, keysOf(QKeySequence::Cut), canEdit, [this] { cut(); }},
      {u"复制"_qs, keysOf(QKeySequence::Copy), canCopy, [this] { copy(); }},
      {u"粘贴"_qs, keysOf(QKeySequence::Paste), [this] { return canPaste(); }, [this] { paste(); }},
      {u"清除"_qs,
       {Qt::Key_Delete, Qt::Key_Backspace},
       canEdit,
       [this] { empty(u"清除"_qs); },
       true},
      {u"重复本行"_qs,
       {Qt::CTRL | Qt::Key_D},
       [this] { return canDuplicate(); },
       [this] { duplicateRow(); },
       true},
      {u"全选"_qs, keysOf(QKeySequence::SelectAll), canCopy, [this] { selectAll(); }},
      {u"打印..."_qs, {}, [] { return true; }, [this] { print(); }},
  };
}

bool GridSurface::canDuplicate() const {
  return appearance_.isEditable && !current().isNone() &&
         isSignalConnected(QMetaMethod::fromSignal(&GridSurface::RowDuplicate));
}

bool GridSurface::useCommandKey(const QKeyEvent& event) {
  const QKeySequence keys(event.keyCombination());
  for (const Command& command : commands()) {
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
  if (fillMenu_) {
    fillMenu_(*menu);
  } else {
    fillOwnMenu(*menu);
  }
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint cell = visualRect(currentIndex()).bottomLeft();
  menu->popup(byKey ? viewport()->mapToGlobal(cell) : event->globalPos());
}

void GridSurface::fillOwnMenu(QMenu& menu) {
  for (const Command& command : commands()) {
    QAction* action = menu.addAction(command.text, this, command.run);
    action->setShortcuts(command.keys);
    action->setEnabled(command.isEnabled());
    if (command.endsGroup) menu.addSeparator();
  }
}

// An open cell's Escape is no shortcut of the window, also while the focus is still here.
bool GridSurface::event(QEvent* event) {
  const bool isEscape = event->type() == QEvent::ShortcutOverride &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (isEscape && isEditing()) event->accept();
  return QTableView::event(event);
}

// While a cell is open, keys come here that its editor has no use for, and those that find the
// focus still in the grid, where an input method began.
void GridSurface::keyPressEvent(QKeyEvent* event) {
  event->ignore();
  if (event->key() == Qt::Key_Escape && cancelCellDrag()) return event->accept();
  if (passToEditor(*event)) return;
  if (isEditing() && !isWindowKey(*event)) return;
  keepTypedText();
  emit GridKeyDown(event);
  if (event->isAccepted() || isEditing()) return;
  event->setAccepted(useCommandKey(*event) || useEditKey(*event) || useMoveKey(*event));
}

// What the editor has no use for comes back here.
bool GridSurface::passToEditor(QKeyEvent& event) {
  CellEditor* open = editor();
  if (!open || open->hasFocus() || isPassing_ || isModifierKey(event.key())) return false;
  const QScopedValueRollback passing(isPassing_, true);
  open->setFocus();
  event.accept();
  QCoreApplication::sendEvent(open, &event);
  return true;
}

bool GridSurface::useMoveKey(const QKeyEvent& event) {
  return !event.modifiers().testFlag(Qt::AltModifier) && moveBy(event.key(), event.modifiers());
}

// With Ctrl, Tab goes to the next control, as it does from other boxes that use Tab themselves.
bool GridSurface::leaveBy(int key, Qt::KeyboardModifiers modifiers) {
  const bool isTab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
  if (!isTab || !modifiers.testFlag(Qt::ControlModifier)) return false;
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): the item view's own sends Tab back to the grid.
  return QWidget::focusNextPrevChild(key == Qt::Key_Tab && !modifiers.testFlag(Qt::ShiftModifier));
}

bool GridSurface::moveBy(int key, Qt::KeyboardModifiers modifiers) {
  sync();
  if (leaveBy(key, modifiers)) return true;
  const bool selects = modifiers.testFlag(Qt::ShiftModifier) && selectsWithShift(key);
  CellPlace from = selects ? movingCorner() : current();
  if (from.isNone()) from = {0, 0};
  const auto target = targetOf(key, modifiers, from, sheet(), rowsPerPage());
  if (!target) return false;
  if (selects && !current().isNone()) {
    extendSelection(*target);
  } else {
    makeCurrent(current().isNone() ? from : *target);
  }
  return true;
}

// F2 opens a cell, typing replaces it; where nothing can be typed, Enter and Space pick the cell.
bool GridSurface::useEditKey(QKeyEvent& event) {
  const CellPlace cell = current();
  if (cell.isNone()) return false;
  if (!appearance_.isEditable) {
    if (!isEnter(event.key()) && event.key() != Qt::Key_Space) return false;
    emit CellActivated(cell.col, cell.row);
    return true;
  }
  if (event.key() == Qt::Key_F2) {
    openCell(cell);
    return isEditing();
  }
  return isTyped(event) && edit(currentIndex(), AnyKeyPressed, &event);
}

}  // namespace vellora
