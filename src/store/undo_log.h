#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

struct sqlite3_context;
struct sqlite3_value;

namespace vellora {

class Connection;
class ScheduleStore;

// Keeps what this program saves, so that it can be undone and done again as long as it runs: every
// transaction is a step. Temporary triggers note the rows before and after each change, as in
// "Automatic Undo/Redo Using SQLite" (sqlite.org/undoredo.html). The chosen skin is no part of it.
//
// A row that has changed since is never overwritten: the step then fails whole. At most 200 steps
// and 64 MiB are kept; the oldest go first, and with a step that is larger by itself all go.
class UndoLog {
 public:
  UndoLog(ScheduleStore& store, Connection& connection);
  ~UndoLog();
  UndoLog(const UndoLog&) = delete;
  UndoLog& operator=(const UndoLog&) = delete;

  // What the steps from now on are called, as in "移动“高等数学”".
  void setName(const QString& name) { name_ = name; }
  // The names of the next step to undo and to do again; none when there is none.
  std::optional<QString> undoName() const;
  std::optional<QString> redoName() const;
  // Throw StoreFault::RowChanged, with nothing changed, when a row is not any more what the step
  // left it, and other StoreErrors as any save does.
  void undo();
  void redo();

  // Makes what was saved since the last step one step. Called by the store after each save.
  void closeStep();

  // While it lives nothing is logged. What was logged before is forgotten, for it would not fit.
  class Pause {
   public:
    explicit Pause(UndoLog& log) : log_(log) { log_.is_paused_ = true; }
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    UndoLog& log_;
  };

 private:
  enum Kind { Inserted, Updated, Deleted };
  struct Change {
    std::size_t table;  // by its position in the schema
    Kind kind;
    qsizetype values;  // where they begin among those of the step
  };
  struct Step {
    QString name;
    std::vector<Change> changes;
    // Of each change the row's number, its columns as they are now, and as they were before an
    // update, one behind the other.
    QByteArray values;
  };

  void addTriggers();
  void forgetOldest();
  void replay(Step& step, const QString& verb);
  void runInverse(const Step& step, const Change& change) const;
  static void note(sqlite3_context* context, int count, sqlite3_value** values) noexcept;
  static void rolledBack(void* log) noexcept;

  ScheduleStore& store_;
  Connection& connection_;
  std::vector<Step> steps_;
  std::size_t done_ = 0;  // steps that are done; those behind them were undone
  QString name_;
  Step open_;                  // what is being saved
  Step* replayed_ = nullptr;   // while it is undone or done again
  bool is_too_large_ = false;  // the open step
  bool is_paused_ = false;
};

}  // namespace vellora
