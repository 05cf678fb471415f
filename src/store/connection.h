#pragma once

#include "store/statement_cache.h"
#include "store/store_error.h"

#include <QElapsedTimer>
#include <QString>

#include <SQLiteCpp/Database.h>
#include <chrono>
#include <functional>
#include <optional>

namespace vellora {

// The one open database behind a ScheduleStore. Everything throws StoreError.
class Connection {
 public:
  // Opens an existing file and never creates one. Another program that is writing is waited for,
  // and meanwhile `mayKeepWaiting` is asked often; false ends the waiting.
  Connection(const QString& path, std::chrono::milliseconds patience,
             std::function<bool()> mayKeepWaiting = {});
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  sqlite3* handle() const { return database_.getHandle(); }
  StatementCache& statements() { return statements_; }
  bool isReadOnly() const { return isReadOnly_; }
  bool isInTransaction() const;
  qint64 changeCount() const;  // rows changed since the file was opened
  qint64 lastInsertedRow() const;

  // Throws StoreFault::FileMoved. Reading alone would not notice: the engine goes on with the file
  // that it has opened.
  void requireUnmoved() const;

  // The number that every save to the file changes, read from the disk.
  std::optional<quint32> saveCount() const;
  // What is true after a save has failed: StoreFault::SavedDespiteError when the file has changed
  // from `before` on, because only a step after the last write failed.
  StoreError outcome(const StoreError& failure, std::optional<quint32> before);
  // Runs a change that may be a save of its own; its failure is the outcome of that.
  template <typename Change>
  void save(Change change) {
    if (isInTransaction()) return change();
    const std::optional<quint32> before = saveCount();
    try {
      change();
    } catch (const StoreError& failure) {
      throw outcome(failure, before);
    }
    saved();
  }
  // To be called after every save; passes it on.
  void saved() const {
    if (onSaved_) onSaved_();
  }
  void setOnSaved(std::function<void()> onSaved) { onSaved_ = std::move(onSaved); }

  // Asked every few milliseconds of a statement; false ends it with WorkCancelled. Null for
  // nothing.
  void setProgressHandler(std::function<bool()>* mayContinue);

  // Runs one of the program's own statements that gives no rows.
  void run(const char* sql);
  // The same where nothing can be done about a failure.
  void tryRun(const char* sql) noexcept;
  // The number that one of the program's own statements gives.
  qint64 numberFrom(const char* sql);

 private:
  static int wait(void* waiting, int timesWaited) noexcept;
  bool waitsOn(int timesWaited);

  std::chrono::milliseconds patience_;
  std::function<bool()> waitGoesOn_;
  QElapsedTimer waiting_;
  SQLite::Database database_;
  StatementCache statements_;
  std::function<void()> onSaved_;
  bool isReadOnly_ = false;
};

}  // namespace vellora
