#pragma once

#include <QWidget>

#include <vector>

class QTableView;

namespace vellora {

// A bar at the left edge of some rows of a grid, over it, so that the sheet, its undo history and
// its printed pages know nothing of it. The mouse goes through.
class UnsavedMarks : public QWidget {
  Q_OBJECT

 public:
  explicit UnsavedMarks(QTableView& grid);

  // In ascending order.
  void setRows(std::vector<int> rows);
  const std::vector<int>& rows() const { return rows_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void cover();

  QTableView& grid_;
  QWidget& viewport_;  // still sends events when the grid around it is half destroyed
  std::vector<int> rows_;
};

}  // namespace vellora
