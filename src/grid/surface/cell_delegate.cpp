#include "grid/surface/cell_delegate.h"

#include "grid/surface/cell_editor.h"

#include <QEvent>
#include <QKeyEvent>

namespace vellora {

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
  auto* editor = new CellEditor(parent);
  editor->document()->setDefaultTextOption(QTextOption(
      index.data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignHorizontal_Mask));
  QPalette palette = parent->palette();
  palette.setColor(QPalette::Text, look_.colours.text);
  palette.setColor(QPalette::Base, look_.colours.paper);
  palette.setColor(QPalette::WindowText, look_.colours.current);
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
