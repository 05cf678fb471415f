#pragma once

#include "grid/surface/grid_appearance.h"

#include <QPlainTextEdit>
#include <QStyledItemDelegate>

namespace vellora {

// A box for texts of several lines that can be pasted into, and dropped on, whatever the clipboard
// holds: Qt's own crashes where that has no formats, as when the program that had it is gone.
class PlainTextBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  using QPlainTextEdit::QPlainTextEdit;

 protected:
  void insertFromMimeData(const QMimeData* source) override;
};

bool isModifierKey(int key);

// Whether a key that an open cell has no use for is one of the window's: a function key, or one
// with Ctrl, Alt or Meta.
bool isWindowKey(const QKeyEvent& event);

// Where a cell's text is typed: Enter and Tab leave, Alt+Enter begins a new line.
class CellEditor final : public PlainTextBox {
  Q_OBJECT

 public:
  // The cell's rectangle; the editor grows from it while its text needs more room.
  explicit CellEditor(QWidget* viewport);
  void setCell(const QRect& cell);

 signals:
  // The text is to be kept and the cell left by this key.
  void left(int key, Qt::KeyboardModifiers modifiers);
  // A key is about to reach the window's commands, which must find the text in the sheet.
  void aboutToLoseKey();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void fit();

  QRect cell_;
};

// Makes the editor of a cell and carries its text; the cells themselves are painted by the grid.
class CellDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit CellDelegate(const GridAppearance& appearance) : appearance_(appearance) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
  bool eventFilter(QObject* object, QEvent* event) override;

 signals:
  // After the text was kept and the editor closed.
  void left(int key, Qt::KeyboardModifiers modifiers);
  // As CellEditor's.
  void aboutToLoseKey();

 private:
  void close(QWidget* editor, EndEditHint hint);
  void leave(QWidget* editor, int key, Qt::KeyboardModifiers modifiers);

  const GridAppearance& appearance_;
};

}  // namespace vellora
