#pragma once

#include "routine/work_step.h"
#include "store/recordset.h"
#include "store/row_reader.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace vellora {

class Connection;
class UndoLog;

// The schedule database, one connection to one file. Statements are in the planner's dialect (see
// dialect.h); every operation may throw StoreError.
class ScheduleStore {
 public:
  // Opens an existing schedule, checks that all six tables and their columns are there, and adds
  // the planner's indices where they are missing. Never creates a file. `patience` is how long a
  // program that is writing is waited for, and `mayKeepWaiting` is asked again and again meanwhile,
  // from the opening on; false ends the waiting with StoreFault::Busy, as the end of the patience
  // does. What is asked must keep off the store.
  explicit ScheduleStore(const QString& path,
                         std::chrono::milliseconds patience = std::chrono::seconds(5),
                         std::function<bool()> mayKeepWaiting = {});
  ~ScheduleStore();
  ScheduleStore(const ScheduleStore&) = delete;
  ScheduleStore& operator=(const ScheduleStore&) = delete;

  // Runs a statement that changes rows; returns how many it changed.
  qint64 execute(const Query& statement);

  // Opens the rows of a table, by its name, or of a SELECT statement.
  Recordset open(const Query& tableOrSelect);

  // Reads the same rows once: look-ups behind a board, backups of a large schedule.
  RowCursor readOnce(const Query& tableOrSelect);

  // What is saved from the first call on can be undone; see undo_log.h.
  UndoLog& undoLog();

  // How many rows this program has added, changed or deleted since it opened the schedule.
  qint64 changedRows() const;

  // True when the file or its folder does not let this program save.
  bool isReadOnly() const;

  // While it lives, asks every few milliseconds of a long statement whether to go on; false ends
  // the statement with WorkCancelled. What is asked must keep off the store. Watches do not nest.
  class Watch {
   public:
    Watch(ScheduleStore& store, std::function<bool()> mayContinue);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

   private:
    Connection& connection_;
    std::function<bool()> goesOn_;
  };

  // Makes everything until commit() one change: all of it or none. Rolled back by the destructor
  // when commit() was not reached or failed. Other programs that want to save wait from its start.
  // Transactions do not nest.
  //
  // commit() tells what is true: it throws StoreFault::SavedDespiteError when everything is in the
  // file although the disk refused the last step, for example to remove the journal for good. After
  // any other fault nothing is saved. Changes outside of a transaction tell the same.
  class Transaction {
   public:
    explicit Transaction(ScheduleStore& store);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

   private:
    Connection* connection_;         // null after commit()
    std::optional<quint32> before_;  // the file's number of saves
  };

  // Keeps one view of the database for many look-ups, which is several times faster than reading
  // them one by one. Inside another transaction it joins that one; otherwise what is written while
  // it lives is not saved. Other copies of the program cannot save while it lives: keep it short.
  // Both kinds of transaction throw StoreFault::FileMoved at their start.
  class ReadTransaction {
   public:
    explicit ReadTransaction(ScheduleStore& store);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

   private:
    Connection* connection_;  // null when joined
  };

 private:
  std::unique_ptr<Connection> connection_;
  std::unique_ptr<UndoLog> undo_log_;
};

// Looks a whole schedule through for damage that nobody has met yet, on a connection of its own and
// for reading alone: 25 ms for twenty years of plans. Another program that is writing is not waited
// for. Everything but interrupt() throws StoreError.
class ScheduleCheck {
 public:
  explicit ScheduleCheck(const QString& path);
  ~ScheduleCheck();
  ScheduleCheck(const ScheduleCheck&) = delete;
  ScheduleCheck& operator=(const ScheduleCheck&) = delete;

  // Nobody can save to the schedule meanwhile. Ends with WorkCancelled when it is interrupted.
  bool isSound();
  // From any thread; in vain while isSound() has not begun to read.
  void interrupt();

 private:
  std::unique_ptr<Connection> connection_;
};

}  // namespace vellora
