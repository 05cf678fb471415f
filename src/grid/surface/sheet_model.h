#pragma once

#include "grid/sheet/workbook.h"
#include "grid/surface/grid_appearance.h"

#include <QAbstractTableModel>

#include <utility>
#include <vector>

namespace vellora {

// Views, editors and assistive tools read a workbook's current sheet through this. The sheet may
// run ahead of what the views were told: reading is always safe, and sync() tells them.
class SheetModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  SheetModel(const Workbook& book, const GridAppearance& appearance)
      : book_(book), appearance_(appearance) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  // Tells the views of rows and columns that came or went at the end.
  void sync();
  // Tells of rows that the sheet has just got or lost there; until then model and sheet agreed.
  void announceInserted(int row, int count);
  void announceRemoved(int row, int count);
  // Tells that any text or look may have changed.
  void announceChanged();

 signals:
  // The user entered a text, its lines separated by character 13.
  void typed(int col, int row, const QString& text);

 private:
  const Sheet& sheet() const { return book_.sheet(); }
  QString meaningOf(int row) const;  // of its mark
  TextColours coloursAt(int col, int row) const;
  QString headingText(int section, Qt::Orientation orientation) const;
  void syncRows(int rows);
  void syncCols(int cols);
  // Texts and styles of the heading strip.
  using Strip = std::vector<std::pair<QString, int>>;
  Strip strip() const;

  const Workbook& book_;
  const GridAppearance& appearance_;
  int rows_ = 0;
  int cols_ = 0;
  Strip announcedStrip_;
};

}  // namespace vellora
