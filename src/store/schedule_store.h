#pragma once

#include "store/recordset.h"

#include <QString>

#include <memory>

namespace vellora {

// The schedule database, one connection to one file. Statements are in the planner's dialect (see
// dialect.h); every operation may throw StoreError.
class ScheduleStore {
 public:
  // Opens an existing schedule, adds the planner's indices where they are missing, and checks that
  // all six tables and their columns are there. Never creates a file.
  explicit ScheduleStore(const QString& path);
  ~ScheduleStore();
  ScheduleStore(const ScheduleStore&) = delete;
  ScheduleStore& operator=(const ScheduleStore&) = delete;

  // Runs a statement that changes rows; returns how many it changed.
  qint64 execute(const QString& statement);

  // Opens the rows of a table, by its name, or of a SELECT statement.
  Recordset open(const QString& tableOrSelect);

  // True when the file or its folder does not let this program save.
  bool isReadOnly() const;

  // Makes everything until commit() one change: all of it or none. Rolled back by the destructor
  // when commit() was not reached. Transactions do not nest.
  class Transaction {
   public:
    explicit Transaction(ScheduleStore& store);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

   private:
    ScheduleStore* store_;
  };

  // Keeps one view of the database for many look-ups, which is several times faster than reading
  // them one by one. Other copies of the program cannot save while it lives: keep it short.
  class ReadTransaction {
   public:
    explicit ReadTransaction(ScheduleStore& store);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

   private:
    ScheduleStore* store_;
  };

 private:
  class Connection;
  std::unique_ptr<Connection> connection_;
};

}  // namespace vellora
