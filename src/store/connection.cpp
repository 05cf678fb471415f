#include "store/connection.h"

#include "store/clock_functions.h"
#include "store/engine_error.h"

#include <QFileInfo>

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

namespace vellora {
namespace {

constexpr qint64 kSmallestFile = 512;  // one page of the smallest size

StoreError notASchedule(const QString& reason, const QString& path) {
  return {StoreFault::NotADatabase, u"%1：%2。"_qs.arg(reason, path)};
}

// The engine takes an empty or tiny file for a new database, and beside it deletes the journal of
// an unfinished save: such files are refused before it sees them. The file is not opened here,
// because closing it would drop the locks of any other connection of this process.
void requireSchedule(const QString& path) {
  const QFileInfo info(path);
  if (!info.exists()) {
    throw StoreError(StoreFault::FileMissing, u"找不到日程文件：%1。"_qs.arg(path));
  }
  if (!info.isFile()) throw notASchedule(u"这不是日程文件"_qs, path);
  if (info.size() == 0) throw notASchedule(u"日程文件是空的"_qs, path);
  if (info.size() < kSmallestFile) throw notASchedule(u"日程文件不完整"_qs, path);
}

SQLite::Database openedDatabase(const QString& path, std::chrono::milliseconds patience) {
  requireSchedule(path);
  try {
    return {path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
            static_cast<int>(patience.count())};
  } catch (const SQLite::Exception& failure) {
    throw engineError(failure.getExtendedErrorCode(), QString::fromUtf8(failure.what()));
  }
}

bool lacksLeaveToWrite(sqlite3* connection, const QString& path) {
  return sqlite3_db_readonly(connection, "main") == 1 ||
         !QFileInfo(QFileInfo(path).canonicalPath()).isWritable();
}

}  // namespace

Connection::Connection(const QString& path, std::chrono::milliseconds patience)
    : database_(openedDatabase(path, patience)), statements_(database_.getHandle()) {
  sqlite3_extended_result_codes(handle(), 1);
  // A name in quotes is a name and never silently a text.
  sqlite3_db_config(handle(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  addClockFunctions(handle());
  run("PRAGMA synchronous=EXTRA");
  run("PRAGMA journal_mode=DELETE");
  // Known only now that the file was looked into: a newer format may allow nothing but reading.
  isReadOnly_ = lacksLeaveToWrite(handle(), path);
}

bool Connection::isInTransaction() const {
  return sqlite3_get_autocommit(handle()) == 0;
}

qint64 Connection::changeCount() const {
  return sqlite3_total_changes64(handle());
}

qint64 Connection::lastInsertedRow() const {
  return sqlite3_last_insert_rowid(handle());
}

void Connection::run(const char* sql) {
  if (sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw engineError(handle());
  }
}

qint64 Connection::numberFrom(const char* sql) {
  PreparedStatement statement(handle(), sql);
  return statement.step() ? statement.cell(0).integer : 0;
}

void Connection::tryRun(const char* sql) noexcept {
  sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr);
}

}  // namespace vellora
