#include "grid/surface/cell_editor.h"

#include <QKeyEvent>
#include <QTextBlock>

namespace vellora {
namespace {

bool isLeavingKey(const QKeyEvent& event) {
  const int key = event.key();
  if (key == Qt::Key_Tab || key == Qt::Key_Backtab) return true;
  const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
  return isEnter && !(event.modifiers() & (Qt::AltModifier | Qt::ControlModifier));
}

bool isNewLineKey(const QKeyEvent& event) {
  const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  return isEnter && (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier));
}

// Keys of the window: Alt with a letter presses a button without moving the focus.
bool reachesWindow(const QKeyEvent& event) {
  if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F35) return true;
  return event.modifiers() == Qt::AltModifier && !isNewLineKey(event);
}

}  // namespace

CellEditor::CellEditor(QWidget* viewport) : QPlainTextEdit(viewport) {
  setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setTabChangesFocus(false);
  document()->setDocumentMargin(1);
  connect(this, &QPlainTextEdit::textChanged, this, &CellEditor::fit);
}

// The frame lies on the cell's grid lines.
void CellEditor::setCell(const QRect& cell) {
  cell_ = cell.adjusted(-1, -1, 1, 1);
  fit();
}

// Never over the viewport's lower edge, where the text scrolls instead.
void CellEditor::fit() {
  if (cell_.isNull()) return;
  int lines = 0;
  setGeometry(QRect(cell_.topLeft(), QSize(cell_.width(), height())));
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    lines += std::max(1, block.layout()->lineCount());
  }
  const int needed = lines * fontMetrics().lineSpacing() + 5;
  const int room = parentWidget()->height() - cell_.top();
  setGeometry(cell_.x(), cell_.y(), cell_.width(),
              std::max(cell_.height(), std::min(needed, room)));
}

void CellEditor::putCursorAtEnd() {
  moveCursor(QTextCursor::End);
}

bool CellEditor::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && reachesWindow(*static_cast<QKeyEvent*>(event))) {
    emit aboutToLoseKey();
  }
  return QPlainTextEdit::event(event);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
  if (isLeavingKey(*event)) {
    emit left(event->key(), event->modifiers());
  } else if (isNewLineKey(*event)) {
    insertPlainText(u"\n"_qs);
  } else {
    QPlainTextEdit::keyPressEvent(event);
  }
}

}  // namespace vellora
