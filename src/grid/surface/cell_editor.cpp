#include "grid/surface/cell_editor.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>

namespace vellora {
namespace {

constexpr int kFrame = 2;  // pixels; as seen as that of the current cell

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

}  // namespace

void PlainTextBox::insertFromMimeData(const QMimeData* source) {
  if (source && !source->formats().isEmpty()) QPlainTextEdit::insertFromMimeData(source);
}

bool isModifierKey(int key) {
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
         (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R);
}

bool isWindowKey(const QKeyEvent& event) {
  if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F35) return true;
  constexpr auto kCommand = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  return (event.modifiers() & kCommand) && !isModifierKey(event.key());
}

CellEditor::CellEditor(QWidget* viewport) : PlainTextBox(viewport) {
  setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
  setLineWidth(kFrame);
  setForegroundRole(QPalette::WindowText);  // the frame's; the text has its own
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
  const int needed = lines * fontMetrics().lineSpacing() + 2 * kFrame + 3;
  const int room = parentWidget()->height() - cell_.top();
  setGeometry(cell_.x(), cell_.y(), cell_.width(),
              std::max(cell_.height(), std::min(needed, room)));
}

// Alt with a letter presses a button of the window without moving the focus; Escape closes the
// cell, whatever else it would do.
bool CellEditor::event(QEvent* event) {
  const bool isUsed = PlainTextBox::event(event);
  if (event->type() != QEvent::ShortcutOverride || event->isAccepted()) return isUsed;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() == Qt::Key_Escape || isNewLineKey(key))
    event->accept();
  else if (isWindowKey(key))
    emit aboutToLoseKey();
  return isUsed;
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
  if (isLeavingKey(*event)) {
    emit left(event->key(), event->modifiers());
  } else if (isNewLineKey(*event)) {
    insertPlainText(u"\n"_qs);
  } else {
    PlainTextBox::keyPressEvent(event);
  }
}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
  auto* editor = new CellEditor(parent);
  editor->document()->setDefaultTextOption(QTextOption(
      index.data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignHorizontal_Mask));
  QPalette palette = parent->palette();
  palette.setColor(QPalette::Text, appearance_.colours.text);
  palette.setColor(QPalette::Base, appearance_.colours.paper);
  palette.setColor(QPalette::WindowText, appearance_.colours.current);
  editor->setPalette(palette);
  editor->setFont(index.data(Qt::FontRole).value<QFont>());
  editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
  auto* self = const_cast<CellDelegate*>(this);  // Qt makes editors through a const delegate
  connect(editor, &CellEditor::left, self,
          [self, editor](int key, Qt::KeyboardModifiers modifiers) {
            self->leave(editor, key, modifiers);
          });
  connect(editor, &CellEditor::aboutToLoseKey, self, &CellDelegate::aboutToLoseKey);
  return editor;
}

void CellDelegate::leave(QWidget* editor, int key, Qt::KeyboardModifiers modifiers) {
  emit commitData(editor);
  close(editor, NoHint);
  emit left(key, modifiers);
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  auto* text = static_cast<CellEditor*>(editor);
  text->setPlainText(index.data(Qt::EditRole).toString());
  text->selectAll();
}

// An unchanged text is no edit.
void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const {
  const QString text = static_cast<CellEditor*>(editor)->toPlainText();
  if (text != index.data(Qt::EditRole).toString()) model->setData(index, text);
}

void CellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex&) const {
  static_cast<CellEditor*>(editor)->setCell(option.rect);
}

// Losing the focus on the way out would commit a second time.
void CellDelegate::close(QWidget* editor, EndEditHint hint) {
  editor->removeEventFilter(this);
  emit closeEditor(editor, hint);
}

// Of the keys, only Escape is the delegate's; the editor knows what to do with Enter and Tab.
bool CellDelegate::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QStyledItemDelegate::eventFilter(object, event);
  if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
  close(static_cast<QWidget*>(object), RevertModelCache);
  return true;
}

}  // namespace vellora
