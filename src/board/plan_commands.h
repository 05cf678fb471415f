#pragma once

#include "grid/surface/cell_range.h"
#include "schedule/plan_moves.h"

#include <QAction>
#include <QDate>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QMenu;

namespace vellora {

class GridSurface;
class TimeBlockList;
struct ApplicationState;

// What can be done to the plans on the board, by menu and keys: every command is one saved step
// that Ctrl+Z undoes, and says in the status line what it did. A place that is taken is never
// overwritten without a question.
class PlanCommands : public QObject {
  Q_OBJECT

 public:
  // What the commands need of the board.
  struct Board {
    GridSurface& grid;
    ApplicationState& state;
    QWidget* window;
    std::function<QDate()> firstDay;
    // Shows the week anew, or the whole board, and says what was done.
    std::function<void(const QString& message)> showSaved;
    std::function<void(const QString& message)> rebuild;
    std::function<void(QDate day)> openDay;
    std::function<void(QDate day)> openMemo;
    std::function<void(const QString& activity)> openActivity;
    std::function<void()> openFind;
    std::function<void(const QString& activity)> exportCalendar;
    std::function<void()> importCalendar;
  };
  explicit PlanCommands(const Board& board);

  // Those for the selected cells first, then those for the week, with their shortcuts.
  void fill(QMenu& menu);

  // Moves or copies a block, asking when the place is taken.
  void put(const PlannedBlock& block, const PlanPlace& to, bool copies);
  // Runs a change of the store and tells its failure; false when there was one.
  bool guarded(const std::function<void()>& change) const;

  // None for headings and outside of the sheet.
  std::optional<PlanPlace> placeAt(int col, int row) const;
  std::optional<PlannedBlock> blockAt(CellPlace cell) const;
  QString shownActivity(CellPlace cell) const;
  QDate firstDay() const { return board_.firstDay(); }
  ScheduleStore& store() const;

 private:
  using Act = void (PlanCommands::*)();
  struct Entry {
    QAction* action;
    bool (PlanCommands::*isPossible)() const;
    bool endsGroup;
  };
  void add(const QString& name, const QString& icon, const QString& text, const QKeySequence& key,
           Act act, bool (PlanCommands::*isPossible)() const, bool endsGroup = false);
  void addCellCommands();
  void addWeekCommands();

  // Of the current cell.
  bool isPlanned() const;
  bool isFree() const;
  bool isDay() const;
  bool hasPlans() const;
  bool isWeek() const { return true; }
  bool canPaste() const;
  bool canUndo() const;
  bool canRedo() const;
  std::optional<PlanPlace> current() const;
  QDate currentDay() const;
  std::vector<PlannedBlock> selectedBlocks() const;
  QString described(const PlannedBlock& block) const;

  void editTexts();
  void moveTo();
  void cut();
  void copy();
  void cancel();
  void cancelFromHereOn();
  void openPlan();
  void arrange() { arrangeFrom({}); }
  void arrangeFrom(const QString& typed);
  void paste();
  void openDay();
  void openMemo();
  void copyDay();
  void clearDay();
  void copyWeek();
  void copyWeekTo();
  void clearWeek();
  void postpone();
  void find() { board_.openFind(); }
  void exportCalendar();
  void importCalendar() { board_.importCalendar(); }
  void undo();
  void redo();

  void pick(bool isCut);
  // Asks about places that are taken, then carries the moves out as one step of that name.
  void carryOut(const QString& name, const PlanMoves& moves, const QString& message,
                bool confirms = false);
  std::optional<std::set<PlanPlace>> placesToKeep(const PlanMoves& moves, const QString& what,
                                                  bool confirms) const;
  Board board_;
  std::vector<Entry> entries_;
  std::vector<PlannedBlock> picked_;  // cut or copied
  PlanPlace picked_at_;               // the place of the first of them
  bool is_cut_ = false;
};

}  // namespace vellora
