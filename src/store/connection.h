#pragma once

#include "store/statement_cache.h"

#include <QElapsedTimer>
#include <QString>

#include <SQLiteCpp/Database.h>
#include <chrono>
#include <functional>

namespace vellora {

// The one open database behind a ScheduleStore. Everything throws StoreError.
class Connection {
 public:
  // Opens an existing file and never creates one. Another program that is writing is waited for.
  Connection(const QString& path, std::chrono::milliseconds patience);
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  sqlite3* handle() const { return database_.getHandle(); }
  StatementCache& statements() { return statements_; }
  bool isReadOnly() const { return isReadOnly_; }
  bool isInTransaction() const;
  qint64 changeCount() const;  // rows changed since the file was opened
  qint64 lastInsertedRow() const;

  // Asked often while another program is waited for; false ends the waiting.
  void setWait(std::function<bool()> goesOn) { waitGoesOn_ = std::move(goesOn); }
  // Asked every few milliseconds of a statement; false ends it with WorkGivenUp. Null for nothing.
  void setPulse(std::function<bool()>* goesOn);

  // Runs one of the program's own statements that gives no rows.
  void run(const char* sql);
  // The same where nothing can be done about a failure.
  void tryRun(const char* sql) noexcept;
  // The number that one of the program's own statements gives.
  qint64 numberFrom(const char* sql);

 private:
  static int wait(void* connection, int timesWaited) noexcept;
  bool waitsOn(int timesWaited);

  std::chrono::milliseconds patience_;
  QElapsedTimer waiting_;
  std::function<bool()> waitGoesOn_;
  SQLite::Database database_;
  StatementCache statements_;
  bool isReadOnly_ = false;
};

}  // namespace vellora
