#include "store/undo_log.h"

#include "store/connection.h"
#include "store/schedule_store.h"
#include "store/schema_tables.h"
#include "store/store_error.h"

#include <QScopedValueRollback>
#include <QStringList>

#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

namespace vellora {
namespace {

constexpr std::size_t kMostSteps = 200;
constexpr qint64 kMostBytes = 64 * 1024 * 1024;
constexpr const char* kSkinTable = "JM";

QStringList columnsOf(const SchemaTable& table) {
  QStringList columns;
  for (const SchemaColumn& column : table.columns) columns << QString::fromLatin1(column.name);
  return columns;
}

// SQL that makes, in a trigger, the text " AND RQ IS '2007-03-05' AND ..." of a row as it is there.
QString conditionsOn(const QStringList& columns, const QString& row) {
  QString sql;
  for (const QString& column : columns) {
    sql += u"||' AND %1 IS '||quote(%2.%1)"_qs.arg(column, row);
  }
  return sql;
}

QString inverseOfInsert(const QString& table, const QStringList& columns) {
  return u"'DELETE FROM main.%1 WHERE rowid='||new.rowid"_qs.arg(table) +
         conditionsOn(columns, u"new"_qs);
}

QString inverseOfDelete(const QString& table, const QStringList& columns) {
  QStringList values;
  for (const QString& column : columns) values << u"quote(old.%1)"_qs.arg(column);
  return u"'INSERT OR IGNORE INTO main.%1(rowid,%2) VALUES('||old.rowid||','||%3||')'"_qs.arg(
      table, columns.join(u','), values.join(u"||','||"_qs));
}

QString inverseOfUpdate(const QString& table, const QStringList& columns) {
  QStringList values;
  for (const QString& column : columns) values << u"'%1='||quote(old.%1)"_qs.arg(column);
  return u"'UPDATE main.%1 SET '||%2||' WHERE rowid='||new.rowid"_qs.arg(
             table, values.join(u"||','||"_qs)) +
         conditionsOn(columns, u"new"_qs);
}

}  // namespace

UndoLog::UndoLog(ScheduleStore& store, Connection& connection)
    : store_(store), connection_(connection) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_INNOCUOUS;
  sqlite3* engine = connection.handle();
  sqlite3_create_function(engine, "undo_is_on", 0, kFlags, this, isOn, nullptr, nullptr);
  sqlite3_create_function(engine, "undo_step", 1, kFlags, this, stepOf, nullptr, nullptr);
  sqlite3_rollback_hook(engine, rolledBack, this);
  connection.run("PRAGMA temp_store=MEMORY");
  connection.run(
      "CREATE TEMP TABLE undo_log(id INTEGER PRIMARY KEY, step INTEGER, shown TEXT, inverse TEXT)");
  addTriggers();
}

UndoLog::~UndoLog() {
  sqlite3_rollback_hook(connection_.handle(), nullptr, nullptr);
}

void UndoLog::addTriggers() {
  for (const SchemaTable& table : schemaTables()) {
    if (qstrcmp(table.name, kSkinTable) == 0) continue;
    const QString name = QString::fromLatin1(table.name);
    const QStringList columns = columnsOf(table);
    const std::pair<const char*, QString> inverses[]{{"INSERT", inverseOfInsert(name, columns)},
                                                     {"UPDATE", inverseOfUpdate(name, columns)},
                                                     {"DELETE", inverseOfDelete(name, columns)}};
    for (const auto& [change, inverse] : inverses) {
      const QString trigger =
          u"CREATE TEMP TRIGGER undo_%1_%2 AFTER %1 ON main.%2 WHEN undo_is_on() BEGIN "
          u"INSERT INTO undo_log(step,shown,inverse) SELECT undo_step(s),'%3',s FROM "
          u"(SELECT %4 AS s); END"_qs.arg(QString::fromLatin1(change), name,
                                          QString::fromUtf16(table.shown), inverse);
      connection_.run(trigger.toUtf8().constData());
    }
  }
}

void UndoLog::isOn(sqlite3_context* context, int, sqlite3_value**) noexcept {
  const auto& log = *static_cast<const UndoLog*>(sqlite3_user_data(context));
  sqlite3_result_int(context, !log.is_paused_ && log.bytes_ <= kMostBytes ? 1 : 0);
}

void UndoLog::stepOf(sqlite3_context* context, int, sqlite3_value** inverse) noexcept {
  auto& log = *static_cast<UndoLog*>(sqlite3_user_data(context));
  log.bytes_ += sqlite3_value_bytes(inverse[0]);
  sqlite3_result_int64(context, log.number_);
}

// The log's rows of the step were rolled back with it.
void UndoLog::rolledBack(void* log) noexcept {
  static_cast<UndoLog*>(log)->bytes_ = 0;
}

void UndoLog::setName(const QString& name) {
  name_ = name;
}

std::optional<QString> UndoLog::undoName() {
  return done_ > 0 ? std::optional(steps_[done_ - 1].name) : std::nullopt;
}

std::optional<QString> UndoLog::redoName() {
  return done_ < steps_.size() ? std::optional(steps_[done_].name) : std::nullopt;
}

void UndoLog::closeStep() {
  if (bytes_ == 0) return;
  const qint64 number = number_++;
  const qint64 bytes = std::exchange(bytes_, 0);
  if (replayed_) {
    replayed_->number = number;
    replayed_->bytes = bytes;
    return;
  }
  steps_.resize(done_);
  steps_.push_back({number, name_, bytes});
  ++done_;
  prune();
}

// The newest that the bounds have room for stay; what was undone before a new step is gone too.
void UndoLog::prune() {
  qint64 bytes = 0;
  std::size_t kept = 0;
  QStringList numbers;
  for (; kept < std::min(steps_.size(), kMostSteps); ++kept) {
    const Step& step = steps_[steps_.size() - kept - 1];
    bytes += step.bytes;
    if (bytes > kMostBytes) break;
    numbers << QString::number(step.number);
  }
  const std::size_t gone = steps_.size() - kept;
  steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(gone));
  done_ -= std::min(done_, gone);
  const QString others = u"DELETE FROM undo_log WHERE step NOT IN (%1)"_qs.arg(numbers.join(u','));
  connection_.tryRun(others.toUtf8().constData());
}

void UndoLog::undo() {
  if (done_ == 0) return;
  replay(steps_[done_ - 1], u"撤消"_qs);
  --done_;
}

void UndoLog::redo() {
  if (done_ == steps_.size()) return;
  replay(steps_[done_], u"重做"_qs);
  ++done_;
}

// The triggers log the inverse of what is done here: the same step the other way round.
void UndoLog::replay(Step& step, const QString& verb) {
  ScheduleStore::Transaction save(store_);
  runInverses(step, verb);
  const QScopedValueRollback replaying(replayed_, &step);
  save.commit();
}

void UndoLog::runInverses(const Step& step, const QString& verb) {
  std::vector<std::pair<std::string, QString>> inverses;
  SQLite::Statement rows(connection_.database(),
                         "SELECT inverse, shown FROM undo_log WHERE step=? ORDER BY id DESC");
  rows.bind(1, static_cast<int64_t>(step.number));
  while (rows.executeStep()) {
    inverses.emplace_back(rows.getColumn(0).getString(),
                          QString::fromStdString(rows.getColumn(1).getString()));
  }
  for (const auto& [inverse, table] : inverses) {
    connection_.run(inverse.c_str());
    if (sqlite3_changes(connection_.handle()) == 1) continue;
    throw StoreError(StoreFault::RowChanged,
                     u"不能%1“%2”：“%3”中的有关内容后来又有改动。"_qs.arg(verb, step.name, table));
  }
}

UndoLog::Pause::Pause(UndoLog& log) : log_(log) {
  log_.is_paused_ = true;
}

UndoLog::Pause::~Pause() {
  log_.is_paused_ = false;
  log_.steps_.clear();
  log_.done_ = 0;
  log_.prune();
}

}  // namespace vellora
