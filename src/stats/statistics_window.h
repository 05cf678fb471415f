#pragma once

#include "routine/work_step.h"
#include "shell/planner_window.h"

#include <vector>

class QGridLayout;
class QLabel;
class QLayout;

namespace vellora {

class DatePicker;
class GridSurface;
struct CategoryUse;

// Shows how much planned time went to each category and activity between two dates. Writes nothing.
class StatisticsWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit StatisticsWindow(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  void onLoad() override;

 private:
  struct CategoryLine {
    QLabel* bar;
    QLabel* text;
  };

  void layOut();
  QLayout* makeRange();
  QGridLayout* makeCategoryLines();
  CategoryLine makeCategoryLine(int index);
  void compute();
  void showTimeUse(const WorkProgress& progress);
  void showCategories(const std::vector<CategoryUse>& uses, qint64 total);

  DatePicker* start_;
  DatePicker* end_;
  QLabel* total_;
  std::vector<CategoryLine> lines_;
  GridSurface* grid_;
};

}  // namespace vellora
