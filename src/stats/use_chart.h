#pragma once

#include "schedule/week_use.h"

#include <QAbstractScrollArea>

namespace vellora {

// A column for each period: its planned time stacked by category, the free time above it. Arrows,
// Home and End choose a column, which is read out; a click or Enter on one leads to its days. The
// same figures stand in a table beside it.
class UseChart : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit UseChart(QWidget* parent);

  void show(std::vector<PeriodUse> uses);
  // What is said in grey instead of columns.
  void setHint(const QString& hint);

 signals:
  void chosen(QDate firstDay);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  // One part of a column, from the bottom to the top.
  struct Part {
    QString label;
    qint64 minutes;
    QColor colour;
  };
  static std::vector<Part> partsOf(const PeriodUse& use);

  QRect area() const;  // of the columns
  int columnWidth() const;
  int columnAt(QPoint point) const;  // −1 for none
  QRect columnRect(int column) const;
  qint64 mostMinutes() const;
  QString textOf(int column) const;
  void makeCurrent(int column);
  void updateScrollBar();
  void paintAxis(QPainter& painter) const;
  void paintColumn(QPainter& painter, int column) const;
  void paintLegend(QPainter& painter) const;

  std::vector<PeriodUse> uses_;
  QString hint_;
  int current_ = 0;
};

}  // namespace vellora
