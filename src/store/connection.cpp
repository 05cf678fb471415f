#include "store/connection.h"

#include "store/clock_functions.h"
#include "store/store_error.h"

#include <QFileInfo>

#include <SQLiteCpp/Exception.h>
#include <algorithm>
#include <sqlite3.h>
#include <thread>

namespace vellora {
namespace {

constexpr qint64 kSmallestFile = 512;  // one page of the smallest size

StoreError notASchedule(const QString& reason, const QString& path) {
  return {StoreFault::NotADatabase, u"%1：%2。"_qs.arg(reason, path)};
}

// The engine opens what it finds under these names and would wait for a pipe for ever.
void requirePlainJournals(const QString& path) {
  for (const QString& ending : {u"-journal"_qs, u"-wal"_qs, u"-shm"_qs}) {
    const QFileInfo info(path + ending);
    if (info.exists() && !info.isFile()) {
      throw notASchedule(u"日程文件旁边的这一项不是普通文件，请移走"_qs, info.filePath());
    }
  }
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
  requirePlainJournals(info.canonicalFilePath());
}

SQLite::Database openedDatabase(const QString& path) {
  requireSchedule(path);
  try {
    return {path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX};
  } catch (const SQLite::Exception& failure) {
    throw engineError(failure.getExtendedErrorCode(), QString::fromUtf8(failure.what()));
  }
}

// Nothing that a file made elsewhere holds is run: no triggers or views, no functions in its checks
// and defaults beyond the harmless ones. Triggers of the temporary schema, which only the planner
// itself can make, run all the same (since 3.35 of the engine).
void distrust(sqlite3* handle) {
  for (const int option :
       {SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_FKEY,
        SQLITE_DBCONFIG_TRUSTED_SCHEMA,
        SQLITE_DBCONFIG_DQS_DML}) {  // a name in quotes is a name and never silently a text
    sqlite3_db_config(handle, option, 0, nullptr);
  }
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
}

bool lacksLeaveToWrite(sqlite3* handle, const QString& path) {
  return sqlite3_db_readonly(handle, "main") == 1 ||
         !QFileInfo(QFileInfo(path).canonicalPath()).isWritable();
}

}  // namespace

Connection::Connection(const QString& path, std::chrono::milliseconds patience,
                       std::function<bool()> mayKeepWaiting)
    : patience_(patience),
      waitGoesOn_(std::move(mayKeepWaiting)),
      database_(openedDatabase(path)),
      statements_(database_.getHandle()) {
  sqlite3_extended_result_codes(handle(), 1);
  sqlite3_busy_handler(handle(), &Connection::wait, this);
  distrust(handle());
  addClockFunctions(handle());
  run("PRAGMA synchronous=EXTRA");
  run("PRAGMA journal_mode=DELETE");
  // Known only now that the file was looked into: a newer format may allow nothing but reading.
  isReadOnly_ = lacksLeaveToWrite(handle(), path);
}

void Connection::requireUnmoved() const {
  if (isMoved(handle())) throw movedError(handle());
}

// Through the engine's own descriptor: closing another one would drop this process's locks.
std::optional<quint32> Connection::saveCount() const {
  constexpr int kPlace = 24;  // in the file's header
  sqlite3_file* file = nullptr;
  sqlite3_file_control(handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  quint32 count = 0;
  if (file == nullptr || file->pMethods == nullptr ||
      file->pMethods->xRead(file, &count, sizeof(count), kPlace) != SQLITE_OK) {
    return {};
  }
  return count;
}

// Reading first undoes what a save that failed earlier has left in the file.
StoreError Connection::outcome(const StoreError& failure, std::optional<quint32> before) {
  const bool isOfTheDisk =
      failure.fault() == StoreFault::InputOutput || failure.fault() == StoreFault::DiskFull;
  if (!isOfTheDisk || isInTransaction() || !before) return failure;
  tryRun("SELECT count(*) FROM sqlite_schema");
  const bool willBeUndone =
      QFileInfo::exists(QString::fromStdString(database_.getFilename()) + u"-journal"_qs);
  const std::optional<quint32> now = saveCount();
  if (willBeUndone || !now || *now == *before) return failure;
  return {StoreFault::SavedDespiteError,
          u"内容已经写入日程文件，但磁盘随后报告了错误，请检查磁盘。"_qs};
}

void Connection::setProgressHandler(std::function<bool()>* mayContinue) {
  constexpr int kSteps = 50'000;  // of the engine's own, a few milliseconds
  const auto ask = [](void* asked) noexcept {
    return (*static_cast<std::function<bool()>*>(asked))() ? 0 : 1;
  };
  sqlite3_progress_handler(handle(), kSteps, mayContinue ? +ask : nullptr, mayContinue);
}

int Connection::wait(void* waiting, int timesWaited) noexcept {
  return static_cast<Connection*>(waiting)->waitsOn(timesWaited) ? 1 : 0;
}

// Waits a little, and longer the second time.
bool Connection::waitsOn(int timesWaited) {
  constexpr int kLongest = 10;  // milliseconds
  if (timesWaited == 0) waiting_.start();
  if (waiting_.hasExpired(patience_.count())) return false;
  if (waitGoesOn_ && !waitGoesOn_()) return false;
  std::this_thread::sleep_for(std::chrono::milliseconds(std::min(timesWaited + 1, kLongest)));
  return true;
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
