#pragma once

#include "grid/sheet/workbook.h"

#include <QAbstractTableModel>

namespace vellora {

// The current sheet of a workbook as a table model. The sheet may run ahead of the model; it is
// caught up with by reconcile().
class SheetModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit SheetModel(Workbook& workbook, QObject* parent = nullptr);

  void reconcile();
  void setEditable(bool on) { editable_ = on; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  Workbook& workbook_;
  int rows_ = 0;
  int cols_ = 0;
  bool editable_ = true;
};

}  // namespace vellora
