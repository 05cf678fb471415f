#pragma once

#include "planning/activity_plan_controls.h"
#include "planning/time_block_list.h"
#include "planning/unsaved_rows.h"
#include "shell/planner_window.h"

#include <functional>

namespace vellora {

class UnsavedWatch;

// Plans one activity across many dates. The lists of blocks and activities stay as loaded until the
// window closes; the grid is replaced, saved or not, whenever an activity is chosen or listed.
class ActivityPlanWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit ActivityPlanWindow(ApplicationState& state, QWidget* parent = nullptr);
  ~ActivityPlanWindow() override;

  // Chooses the first listed activity of exactly that name; without one the choice stays. Call it
  // after Load().
  void chooseActivity(const QString& name);
  QString chosenActivity() const;

 protected:
  void load() override;
  void activate() override;
  bool hasUnsavedTyping() const override;

 private:
  void connectControls();
  void connectGrid();
  void loadBlocks();
  void loadActivities();
  void choose(const QString& name);
  void chooseAgain(const QString& name);
  void showDay();
  void ListPlan();
  void PlaceBlock(int position);
  void SavePlan();
  void DeletePlan();
  void Repeat(const QString& count, int stepDays);
  void duplicateRow(int row);
  void readSaved();
  // Shows the description of a StoreError that the step throws.
  void guarded(const std::function<void()>& step);

  ActivityPlanControls controls_;
  TimeBlockList blocks_;
  SavedEntries saved_;
  UnsavedWatch* watch_;
  bool is_listed_ = true;  // false when reading the chosen activity's plan has failed
};

}  // namespace vellora
