#include "app/attach_windows.h"

#include "app/about_window.h"
#include "app/usage_notes_window.h"
#include "backup/backup_window.h"
#include "board/week_board.h"
#include "editors/activity_item_editor.h"
#include "editors/memo_window.h"
#include "editors/time_block_editor.h"
#include "editors/week_name_editor.h"
#include "exchange/calendar_export_window.h"
#include "exchange/calendar_import_window.h"
#include "planning/activity_plan_window.h"
#include "planning/daily_plan_window.h"
#include "stats/statistics_window.h"
#include "store/undo_log.h"

namespace vellora {
namespace {

// What is saved in a window is undone under its title.
void run(PlannerWindow& window, ApplicationState& state) {
  state.Db.undoLog().setName(u"“%1”中的修改"_qs.arg(window.windowTitle()));
  window.ShowModal();
}

// Opens a window over the board; returns when it has closed.
template <typename Window>
void open(WeekBoard& board, ApplicationState& state) {
  Window window(state, &board);
  window.Load();
  run(window, state);
}

// These leave the board as it was until the next step or rebuild.
template <typename Window>
void attach(WeekBoard& board, ApplicationState& state, BoardCommand command) {
  board.attachCommand(command, [&] { open<Window>(board, state); });
}

void openStatistics(WeekBoard& board, ApplicationState& state) {
  StatisticsWindow window(state, &board);
  QDate chosen;
  QObject::connect(&window, &StatisticsWindow::dayChosen, &window, [&](QDate day) {
    chosen = day;
    window.close();
  });
  window.Load();
  run(window, state);
  if (chosen.isValid()) board.showWeekOf(chosen);
}

void openDailyPlan(WeekBoard& board, ApplicationState& state, QDate day) {
  DailyPlanWindow window(state, board.firstDay(), &board);
  window.Load();
  window.setDate(day);
  run(window, state);
  board.setRedrawFlag();
}

void openActivityPlan(WeekBoard& board, ApplicationState& state, const QString& activity) {
  ActivityPlanWindow window(state, &board);
  window.Load();
  window.chooseActivity(activity);
  run(window, state);
  board.setRedrawFlag();
}

void attachPlanning(WeekBoard& board, ApplicationState& state) {
  board.attachCommand(BoardCommand::DailyPlan,
                      [&] { openDailyPlan(board, state, board.firstDay()); });
  board.attachCommand(BoardCommand::ActivityPlan, [&] {
    open<ActivityPlanWindow>(board, state);
    board.setRedrawFlag();
  });
  board.attachMemo([&](QDate day) {
    MemoWindow window(state, &board);
    window.Load();
    window.setDate(day);
    run(window, state);
  });
  board.attachDayHeading([&](QDate day) { openDailyPlan(board, state, day); });
  board.attachPlannedCell(
      [&](const QString& activity) { openActivityPlan(board, state, activity); });
}

void attachCalendars(WeekBoard& board, ApplicationState& state) {
  board.attachCalendars(
      [&](const QString& activity) {
        CalendarExportWindow window(state, board.firstDay(), activity, &board);
        window.Load();
        run(window, state);
      },
      [&] {
        open<CalendarImportWindow>(board, state);
        board.setRedrawFlag();
      });
}

}  // namespace

void attachWindows(WeekBoard& board, ApplicationState& state) {
  attachPlanning(board, state);
  attachCalendars(board, state);
  board.attachCommand(BoardCommand::Statistics, [&] { openStatistics(board, state); });
  attach<ActivityItemEditor>(board, state, BoardCommand::ActivityItems);
  attach<TimeBlockEditor>(board, state, BoardCommand::TimeBlocks);
  attach<WeekNameEditor>(board, state, BoardCommand::WeekNames);
  attach<MemoWindow>(board, state, BoardCommand::Memo);
  board.attachCommand(BoardCommand::Backup, [&] {
    open<BackupWindow>(board, state);
    board.setRedrawFlag();
  });
  attach<UsageNotesWindow>(board, state, BoardCommand::UsageNotes);
  attach<AboutWindow>(board, state, BoardCommand::About);
}

}  // namespace vellora
