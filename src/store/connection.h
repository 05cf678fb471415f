#pragma once

#include "store/statement_cache.h"

#include <QString>

#include <SQLiteCpp/Database.h>
#include <chrono>

namespace vellora {

// The one open database behind a ScheduleStore. Everything throws StoreError.
class Connection {
 public:
  // Opens an existing file and never creates one. Another program that is writing is waited for.
  Connection(const QString& path, std::chrono::milliseconds patience);

  sqlite3* handle() const { return database_.getHandle(); }
  StatementCache& statements() { return statements_; }
  bool isReadOnly() const { return isReadOnly_; }
  bool isInTransaction() const;
  qint64 changeCount() const;  // rows changed since the file was opened
  qint64 lastInsertedRow() const;

  // Runs one of the program's own statements that gives no rows.
  void run(const char* sql);
  // The same where nothing can be done about a failure.
  void tryRun(const char* sql) noexcept;
  // The number that one of the program's own statements gives.
  qint64 numberFrom(const char* sql);

 private:
  SQLite::Database database_;
  StatementCache statements_;
  bool isReadOnly_ = false;
};

}  // namespace vellora
