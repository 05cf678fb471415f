#pragma once

#include "routine/work_step.h"
#include "shell/planner_window.h"

#include <vector>

class QGridLayout;
class QLabel;
class QLayout;
class QTabWidget;

namespace vellora {

class DatePicker;
class GridSurface;
class UseChart;
struct CategoryUse;
struct PeriodUse;

// Shows how much planned time went to each category and activity between two dates. Writes nothing.
class StatisticsWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit StatisticsWindow(ApplicationState& state, QWidget* parent = nullptr);

 signals:
  // The user wants to see these days on the board.
  void dayChosen(QDate day);

 protected:
  void onLoad() override;

 private:
  struct CategoryLine {
    QLabel* bar;
    QLabel* text;
  };

  void layOut();
  QTabWidget* makeViews();
  void sayWhy(const QString& hint);
  QLayout* makeRange();
  QGridLayout* makeCategoryLines();
  CategoryLine makeCategoryLine(int index);
  void compute();
  void showTimeUse(const WorkProgress& progress);
  void showPeriods(const std::vector<PeriodUse>& uses);
  void showCategories(const std::vector<CategoryUse>& uses, qint64 total);

  DatePicker* start_;
  DatePicker* end_;
  QLabel* total_;
  std::vector<CategoryLine> lines_;
  GridSurface* grid_;
  UseChart* chart_;
  GridSurface* periods_;
};

}  // namespace vellora
