#pragma once

#include <QString>

#include <optional>
#include <vector>

struct sqlite3;
struct sqlite3_context;
struct sqlite3_value;

namespace vellora {

class Connection;
class ScheduleStore;

// Keeps what this program saves, so that it can be undone and done again as long as it runs: every
// transaction is a step. Temporary triggers write the inverse of each changed row, as in "Automatic
// Undo/Redo Using SQLite" (sqlite.org/undoredo.html). The chosen skin is no part of it.
//
// A row that has changed since is never overwritten: the step then fails whole. At most 200 steps
// and 64 MiB are kept; the oldest go first, and a step that is larger by itself is not kept.
class UndoLog {
 public:
  UndoLog(ScheduleStore& store, Connection& connection);
  ~UndoLog();
  UndoLog(const UndoLog&) = delete;
  UndoLog& operator=(const UndoLog&) = delete;

  // What the steps from now on are called, as in "移动“高等数学”".
  void setName(const QString& name);
  // The names of the next step to undo and to do again; none when there is none.
  std::optional<QString> undoName();
  std::optional<QString> redoName();
  // Throw StoreFault::RowChanged, with nothing changed, when a row is not any more what the step
  // left it, and other StoreErrors as any save does.
  void undo();
  void redo();

  // Makes what was saved since the last step one step. Called by the store after each save.
  void closeStep();

  // While it lives nothing is logged. What was logged before is forgotten, for it would not fit.
  class Pause {
   public:
    explicit Pause(UndoLog& log);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    UndoLog& log_;
  };

 private:
  struct Step {
    qint64 number = 0;  // of its rows in the log
    QString name;
    qint64 bytes = 0;
  };

  void addTriggers();
  void prune();
  void replay(Step& step, const QString& verb);
  void runInverses(const Step& step, const QString& verb);

  static void isOn(sqlite3_context* context, int count, sqlite3_value** values) noexcept;
  static void stepOf(sqlite3_context* context, int count, sqlite3_value** inverse) noexcept;
  static void rolledBack(void* log) noexcept;

  ScheduleStore& store_;
  Connection& connection_;
  std::vector<Step> steps_;
  std::size_t done_ = 0;  // steps that are done; those behind them were undone
  QString name_;
  qint64 number_ = 1;         // of the step that is being logged
  qint64 bytes_ = 0;          // and its size so far
  Step* replayed_ = nullptr;  // while it is undone or done again
  bool is_paused_ = false;
};

}  // namespace vellora
