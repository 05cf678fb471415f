#include "store/undo_log.h"

#include "store/connection.h"
#include "store/schedule_store.h"
#include "store/schema_tables.h"
#include "store/store_error.h"

#include <QScopedValueRollback>
#include <QStringList>

#include <cstring>
#include <memory>
#include <sqlite3.h>
#include <tuple>

namespace vellora {
namespace {

constexpr std::size_t kMostSteps = 200;
constexpr qint64 kMostBytes = 64 * 1024 * 1024;
constexpr const char* kSkinTable = "JM";

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

QStringList columnsOf(const SchemaTable& table) {
  QStringList columns;
  for (const SchemaColumn& column : table.columns) columns << QString::fromLatin1(column.name);
  return columns;
}

// "RQ=?7,SJKH=?8": each column with a parameter, numbered from `first` on.
QString withParameters(const QStringList& columns, const QString& sign, const QString& between,
                       int first) {
  QStringList parts;
  for (const QString& column : columns) parts << column + sign + u'?' + QString::number(first++);
  return parts.join(between);
}

template <typename Number>
void append(QByteArray& values, Number number) {
  values.append(reinterpret_cast<const char*>(&number), sizeof(number));
}

template <typename Number>
Number readNumber(const char*& at) {
  Number number;
  std::memcpy(&number, at, sizeof(number));
  at += sizeof(number);
  return number;
}

// One malloc less for each value than the engine's own copies.
void appendValue(QByteArray& values, sqlite3_value* value) {
  const int type = sqlite3_value_type(value);
  values.append(static_cast<char>(type));
  if (type == SQLITE_INTEGER) return append(values, sqlite3_value_int64(value));
  if (type == SQLITE_FLOAT) return append(values, sqlite3_value_double(value));
  if (type == SQLITE_NULL) return;
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
  const int size = sqlite3_value_bytes(value);
  append(values, size);
  values.append(bytes, size);
}

// The value must stay where it is until the statement has run.
void bindValue(sqlite3_stmt* statement, int parameter, const char*& at) {
  const int type = static_cast<unsigned char>(*at++);
  if (type == SQLITE_INTEGER) {
    sqlite3_bind_int64(statement, parameter, readNumber<sqlite3_int64>(at));
  } else if (type == SQLITE_FLOAT) {
    sqlite3_bind_double(statement, parameter, readNumber<double>(at));
  } else if (type != SQLITE_NULL) {
    const int size = readNumber<int>(at);
    if (type == SQLITE_TEXT) {
      sqlite3_bind_text(statement, parameter, at, size, SQLITE_STATIC);
    } else {
      sqlite3_bind_blob(statement, parameter, at, size, SQLITE_STATIC);
    }
    at += size;
  }
}

// Every column of the row as the trigger sees it.
QString valuesOf(const QStringList& columns, const QString& row) {
  return row + u'.' + columns.join(u',' + row + u'.');
}

}  // namespace

UndoLog::UndoLog(ScheduleStore& store, Connection& connection)
    : store_(store), connection_(connection) {
  sqlite3_create_function(connection.handle(), "undo_note", -1, SQLITE_UTF8 | SQLITE_INNOCUOUS,
                          this, note, nullptr, nullptr);
  sqlite3_rollback_hook(connection.handle(), rolledBack, this);
  addTriggers();
}

UndoLog::~UndoLog() {
  sqlite3_rollback_hook(connection_.handle(), nullptr, nullptr);
}

void UndoLog::addTriggers() {
  for (std::size_t table = 0; table < schemaTables().size(); ++table) {
    const QString name = QString::fromLatin1(schemaTables()[table].name);
    if (name == QLatin1String(kSkinTable)) continue;
    const QStringList columns = columnsOf(schemaTables()[table]);
    const QString before = valuesOf(columns, u"old"_qs);
    const QString after = valuesOf(columns, u"new"_qs);
    const std::tuple<Kind, const char*, QString> changes[]{
        {Inserted, "INSERT", u"new.rowid,"_qs + after},
        {Updated, "UPDATE", u"new.rowid,"_qs + after + u',' + before},
        {Deleted, "DELETE", u"old.rowid,"_qs + before}};
    for (const auto& [kind, event, values] : changes) {
      const QString trigger =
          u"CREATE TEMP TRIGGER undo_%1_%2 AFTER %1 ON main.%2 BEGIN SELECT undo_note(%3,%4,%5); END"_qs
              .arg(QString::fromLatin1(event), name, QString::number(table),
                   QString::number(int{kind}), values);
      connection_.run(trigger.toUtf8().constData());
    }
  }
}

void UndoLog::note(sqlite3_context* context, int count, sqlite3_value** values) noexcept {
  auto& log = *static_cast<UndoLog*>(sqlite3_user_data(context));
  if (log.is_paused_) return;
  Step& step = log.open_;
  log.is_too_large_ = log.is_too_large_ || step.values.size() > kMostBytes;
  if (log.is_too_large_) {
    step = {};
    return;
  }
  step.changes.push_back({static_cast<std::size_t>(sqlite3_value_int(values[0])),
                          static_cast<Kind>(sqlite3_value_int(values[1])), step.values.size()});
  for (int i = 2; i < count; ++i) appendValue(step.values, values[i]);
}

void UndoLog::rolledBack(void* log) noexcept {
  auto& undone = *static_cast<UndoLog*>(log);
  undone.open_ = {};
  undone.is_too_large_ = false;
}

std::optional<QString> UndoLog::undoName() const {
  return done_ > 0 ? std::optional(steps_[done_ - 1].name) : std::nullopt;
}

std::optional<QString> UndoLog::redoName() const {
  return done_ < steps_.size() ? std::optional(steps_[done_].name) : std::nullopt;
}

void UndoLog::closeStep() {
  if (std::exchange(is_too_large_, false)) {
    steps_.clear();
    done_ = 0;
    return;
  }
  if (open_.changes.empty()) return;
  Step closed = std::exchange(open_, {});
  if (replayed_) {
    closed.name = replayed_->name;
    *replayed_ = std::move(closed);
    return;
  }
  closed.name = name_;
  steps_.resize(done_);
  steps_.push_back(std::move(closed));
  ++done_;
  forgetOldest();
}

void UndoLog::forgetOldest() {
  qint64 bytes = 0;
  std::size_t kept = 0;
  while (kept < std::min(steps_.size(), kMostSteps)) {
    bytes += steps_[steps_.size() - kept - 1].values.size();
    if (bytes > kMostBytes) break;
    ++kept;
  }
  const std::size_t gone = steps_.size() - kept;
  steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(gone));
  done_ -= std::min(done_, gone);
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

// The triggers note what is done here: the same step the other way round.
void UndoLog::replay(Step& step, const QString& verb) {
  ScheduleStore::Transaction save(store_);
  for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) {
    runInverse(step, *change);
    if (sqlite3_changes(connection_.handle()) == 1) continue;
    const QString table = QString::fromUtf16(schemaTables()[change->table].shown);
    throw StoreError(StoreFault::RowChanged,
                     u"不能%1“%2”：“%3”中的有关内容后来又有改动。"_qs.arg(verb, step.name, table));
  }
  const QScopedValueRollback replaying(replayed_, &step);
  save.commit();
}

void UndoLog::runInverse(const Step& step, const Change& change) const {
  const SchemaTable& table = schemaTables()[change.table];
  const QStringList columns = columnsOf(table);
  const QString name = QString::fromLatin1(table.name);
  const QString asLeft =
      u" WHERE rowid=?1 AND "_qs + withParameters(columns, u" IS "_qs, u" AND "_qs, 2);
  QString sql;
  if (change.kind == Inserted) {
    sql = u"DELETE FROM main."_qs + name + asLeft;
  } else if (change.kind == Updated) {
    const auto firstOld = static_cast<int>(columns.size()) + 2;
    sql = u"UPDATE main."_qs + name + u" SET " +
          withParameters(columns, u"="_qs, u","_qs, firstOld) + asLeft;
  } else {
    sql = u"INSERT OR IGNORE INTO main.%1(rowid,%2) VALUES(%3)"_qs.arg(
        name, columns.join(u','), u"?,"_qs.repeated(columns.size()) + u'?');
  }
  sqlite3_stmt* prepared = nullptr;
  sqlite3_prepare_v2(connection_.handle(), sql.toUtf8().constData(), -1, &prepared, nullptr);
  const Statement statement(prepared, &sqlite3_finalize);
  const char* at = step.values.constData() + change.values;
  const int count = sqlite3_bind_parameter_count(prepared);
  for (int parameter = 1; parameter <= count; ++parameter) bindValue(prepared, parameter, at);
  if (sqlite3_step(prepared) != SQLITE_DONE) throw engineError(connection_.handle());
}

UndoLog::Pause::~Pause() {
  log_.is_paused_ = false;
  log_.steps_.clear();
  log_.done_ = 0;
}

}  // namespace vellora
