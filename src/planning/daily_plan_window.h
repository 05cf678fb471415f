#pragma once

#include "planning/open_items.h"
#include "planning/unsaved_rows.h"
#include "shell/planner_window.h"

#include <QDate>

class QHBoxLayout;
class QLabel;
class QListWidget;
class QVBoxLayout;

namespace vellora {

class DateStepper;
class GridSurface;
class UnsavedWatch;

// Plans one date, block by block. The grid is a working copy: it is read again at every activation
// and every move of the date, and reaches the schedule only by saving.
class DailyPlanWindow : public PlannerWindow {
  Q_OBJECT

 public:
  // Opens at `firstDay`, the board's date.
  DailyPlanWindow(ApplicationState& state, QDate firstDay, QWidget* parent = nullptr);
  ~DailyPlanWindow() override;

  // Shows another date. Call it after Load().
  void setDate(QDate date);
  QDate date() const;

  void LoadDayPlan();
  void SaveDayPlan();

 protected:
  void load() override;
  void activate() override;
  bool hasUnsavedTyping() const override;

 private:
  void layOut();
  QHBoxLayout* layButtons();
  QVBoxLayout* layItems();
  void LoadBlockRows();
  void loadItems();
  void openDay();
  void placeItem(int position);
  void readSaved();

  QDate first_day_;
  QDate shown_day_;  // whose plan the grid holds; invalid when reading it has failed
  DateStepper* day_;
  GridSurface* grid_;
  QListWidget* items_list_;
  QLabel* unsaved_;
  QList<OpenItem> items_;
  SavedEntries saved_;
  UnsavedWatch* watch_;
};

}  // namespace vellora
