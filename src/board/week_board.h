#pragma once

#include "board/command_bar.h"
#include "shell/planner_window.h"

#include <functional>
#include <map>
#include <memory>

class QVBoxLayout;

namespace vellora {

class BoardZoom;
class DateStepper;
class ElidedLabel;
class FindBar;
class FirstSteps;
class GridSurface;
class PlanCommands;
class PlanDrag;
struct SearchHit;
struct WeekTexts;

// The main window: seven days from the picked date by the time blocks. F5 reads it anew. It knows
// no other window; what its commands and clicks open is attached from outside.
class WeekBoard : public PlannerWindow {
  Q_OBJECT

 public:
  explicit WeekBoard(ApplicationState& state);
  ~WeekBoard() override;

  // A command that nothing is attached to, and that the board does not carry out itself, is
  // disabled. The handler opens its window over the board and returns when it has closed; the
  // board is then activated, and rebuilt if the handler asked for that.
  using Handler = std::function<void()>;
  void attachCommand(BoardCommand command, Handler handler);

  // What a click on a day's heading or on a planned cell opens, and Enter or Space on it. The same
  // holds as for a command's handler. Without a handler a click does nothing.
  using DayHandler = std::function<void(QDate day)>;
  using ActivityHandler = std::function<void(const QString& activity)>;
  void attachDayHeading(DayHandler handler) { open_day_ = std::move(handler); }
  // What the menu of a day's heading opens besides.
  void attachMemo(DayHandler handler) { open_memo_ = std::move(handler); }
  void attachPlannedCell(ActivityHandler handler) { open_activity_ = std::move(handler); }
  // What the menu opens for calendar files; the activity of the current cell goes along, if any.
  void attachCalendars(ActivityHandler exporting, Handler importing) {
    export_calendar_ = std::move(exporting);
    import_calendar_ = std::move(importing);
  }

  QDate firstDay() const;
  // From its Monday on.
  void showWeekOf(QDate day);
  void setRedrawFlag() { redraw_ = true; }
  void runCommand(BoardCommand command);
  // In the status line.
  void say(const QString& message) { showMessage(message); }

  // Lays the whole board out anew from template and database.
  void RebuildBoard();
  void BuildTimeRows();
  // Fills headings, labels, caption and day cells for the picked date.
  void FillWeek();

 protected:
  void onLoad() override;
  void onActivate() override { RebuildBoard(); }
  bool closesOnEscape() const override { return false; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void layOut();
  void addPlanCommands();
  void showMenu();
  void setUpGrid();
  void openTemplate();
  void rebuildFromDatabase();
  void showWhole(const std::function<void()>& read);
  void fillAfterStep();
  void readAgain();
  void showStale(const QString& message);
  void showTexts(const WeekTexts& texts);
  void showSaved(const QString& message, bool rebuilds);
  void markToday();
  void openFind();
  void showHit(const SearchHit& hit);
  void openCell(int col, int row);
  void openDay(QDate day);
  void openActivity(const QString& activity);
  void returnFromWindow();
  void print();
  void clearSchedule();
  QString templatePath() const;

  CommandBar* commands_;
  DateStepper* days_;
  ElidedLabel* week_name_;
  ElidedLabel* shown_days_;
  QPushButton* today_;
  QPushButton* more_;
  GridSurface* grid_;
  QPushButton* refresh_;
  QVBoxLayout* find_place_ = nullptr;
  FindBar* find_bar_ = nullptr;
  FirstSteps* first_steps_ = nullptr;  // null when they are not shown
  std::unique_ptr<BoardZoom> zoom_;    // these two go before the grid
  PlanCommands* plan_commands_ = nullptr;
  std::unique_ptr<PlanDrag> plan_drag_;
  qint64 changes_seen_ = 0;  // rows changed by this program when the board was last read
  QDate shown_;              // invalid until something has been read
  std::map<BoardCommand, Handler> handlers_;
  DayHandler open_day_;
  DayHandler open_memo_;
  ActivityHandler open_activity_;
  ActivityHandler export_calendar_;
  Handler import_calendar_;
  bool redraw_ = false;
};

}  // namespace vellora
