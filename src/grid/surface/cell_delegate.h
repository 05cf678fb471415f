#pragma once

#include "grid/surface/grid_colours.h"

#include <QStyledItemDelegate>

namespace vellora {

// Makes the editor of a cell and carries its text; the cells themselves are painted by the grid.
class CellDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit CellDelegate(const GridLook& look) : look_(look) {}

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

  const GridLook& look_;
};

}  // namespace vellora
