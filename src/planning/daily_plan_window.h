#pragma once

#include "grid/sheet/sheet.h"
#include "schedule/items.h"
#include "schedule/plan_entries.h"
#include "shell/edited_window.h"

#include <QDate>

class QHBoxLayout;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace vellora {

class DateStepper;
class GridSurface;

// Plans one date, block by block. The grid is a working copy: it is read again at every activation
// and every move of the date, and reaches the schedule only by saving.
class DailyPlanWindow : public EditedWindow {
  Q_OBJECT

 public:
  // Opens at `firstDay`, the board's date.
  DailyPlanWindow(ApplicationState& state, QDate firstDay, QWidget* parent = nullptr);

  // Shows another date. Call it after Load().
  void setDate(QDate date);
  QDate date() const;

  void LoadDayPlan();
  bool SaveDayPlan();

 protected:
  void onLoad() override;
  void onActivate() override;
  Changes changes() override;
  bool save() override { return SaveDayPlan(); }
  void readAgain() override;
  void setTypable(bool on) override;
  void finishTyping() override;

 private:
  void layOut();
  QHBoxLayout* layButtons();
  QVBoxLayout* layItems();
  void LoadBlockRows();
  void loadItems();
  void openDay();
  void turnTo(QDate day);
  bool bringBack(QDate day, const Sheet& rows);
  void placeItem(int position);
  void showSaved(const SavedEntries& now);

  QDate first_day_;
  QDate shown_day_;        // whose plan the grid holds
  bool has_rows_ = false;  // blocks and items have been read
  DateStepper* day_;
  GridSurface* grid_;
  QListWidget* items_list_;
  QPushButton* save_;
  QList<OpenItem> items_;
  SavedEntries saved_;
};

}  // namespace vellora
