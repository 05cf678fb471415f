#pragma once

#include "grid/surface/range_edit.h"
#include "planning/plan_controls.h"
#include "schedule/plan_saving.h"
#include "schedule/time_blocks.h"
#include "shell/edited_window.h"

#include <functional>

namespace vellora {

// Plans one activity across many dates. The lists of blocks and activities stay as loaded until the
// window closes; the grid is replaced, saved or not, whenever an activity is chosen or listed.
class ActivityPlanWindow : public EditedWindow {
  Q_OBJECT

 public:
  explicit ActivityPlanWindow(ApplicationState& state, QWidget* parent = nullptr);

  // Chooses the first listed activity of exactly that name; without one the choice stays. Call it
  // after Load().
  void chooseActivity(const QString& name);
  QString chosenActivity() const;

 protected:
  void onLoad() override;
  void onActivate() override;
  Changes changes() override;
  bool save() override { return SavePlan(); }
  void readAgain() override;
  void setTypable(bool on) override;
  void finishTyping() override;

 private:
  void connectControls();
  void connectGrid();
  void loadLists();
  void readLists();
  void loadBlocks();
  void loadActivities();
  std::optional<CellEntry> understood(int col, const QString& text) const;
  void choose(const QString& name);
  void chooseAgain(const QString& name);
  void showDay();
  void ListPlan();
  QStringList readPlan();
  void turnTo(const QString& activity);
  bool bringBack(const QString& activity, const Sheet& rows);
  void PlaceBlock(int position);
  bool SavePlan();
  void showOutcome(const PlanSaveOutcome& outcome);
  void DeletePlan();
  void Repeat(const QString& count, int stepDays);
  void duplicateRow(int row);
  // Shows the description of a StoreError that the step throws.
  void guarded(const std::function<void()>& step);

  ActivityPlanControls controls_;
  TimeBlockList blocks_;
  bool has_lists_ = false;  // blocks and activities have been read
  QString listed_;          // the activity whose plan the grid holds
  SavedEntries saved_;
  QList<TakenBlock> taken_;  // by the last save
};

}  // namespace vellora
