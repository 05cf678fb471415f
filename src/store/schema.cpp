#include "store/schema.h"

#include "store/connection.h"
#include "store/store_error.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Transaction.h>
#include <algorithm>
#include <array>
#include <sqlite3.h>

namespace vellora {
namespace {

struct Index {
  const char* name;
  const char* columns;
};

constexpr std::array kIndices{
    Index{"JH_RQ_SJKH", "JH(RQ, SJKH)"},
    Index{"JH_HDMC_RQ_SJKH", "JH(HDMC, RQ, SJKH)"},
    Index{"HD_HDMC", "HD(HDMC)"},
    Index{"SJ_SJKH", "SJ(SJKH)"},
    Index{"BW_RQ", "BW(RQ)"},
};

QByteArray creation(const Index& index) {
  return QByteArray("CREATE INDEX IF NOT EXISTS ") + index.name + " ON " + index.columns;
}

QByteArray creation(const SchemaTable& table) {
  QStringList columns;
  for (const SchemaColumn& column : table.columns) {
    columns.append(QString::fromLatin1(column.name) + u' ' + QString::fromLatin1(column.type));
  }
  return u"CREATE TABLE %1 (%2)"_qs.arg(QLatin1String(table.name), columns.join(u", ")).toUtf8();
}

// Past Connection, which takes no file without a schedule in it.
void fill(const QString& path) {
  SQLite::Database file(path.toStdString(), SQLite::OPEN_READWRITE);
  SQLite::Transaction filling(file);
  for (const SchemaTable& table : schemaTables()) file.exec(creation(table).constData());
  for (const Index& index : kIndices) file.exec(creation(index).constData());
  filling.commit();
}

// True when the column is there.
bool exists(const Connection& database, const char* table, const char* column) {
  const int code = sqlite3_table_column_metadata(database.handle(), "main", table, column, nullptr,
                                                 nullptr, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK && code != SQLITE_ERROR) throw engineError(database.handle());
  return code == SQLITE_OK;
}

// A view or a virtual table has no page of its own; reading or saving would run what it says.
void requireTable(Connection& database, const SchemaTable& table) {
  const QByteArray named =
      QByteArray("SELECT count(*) FROM sqlite_schema WHERE type IN ('table', 'view') AND name='") +
      table.name + "' COLLATE NOCASE";
  if (database.numberFrom(named) == 0) {
    throw StoreError(StoreFault::TableMissing,
                     u"日程文件中没有表“%1”（%2）。"_qs.arg(QStringView(table.shown),
                                                            QLatin1String(table.name)));
  }
  if (database.numberFrom(QByteArray(named + " AND rootpage>0")) == 0) {
    throw StoreError(StoreFault::TableMissing,
                     u"日程文件中的“%1”（%2）不是普通的表，不能使用。"_qs.arg(
                         QStringView(table.shown), QLatin1String(table.name)));
  }
}

void requireColumns(const Connection& database, const SchemaTable& table) {
  for (const SchemaColumn& column : table.columns) {
    if (exists(database, table.name, column.name)) continue;
    throw StoreError(StoreFault::ColumnMissing,
                     u"日程文件的表“%1”（%2）中没有列“%3”（%4）。"_qs.arg(
                         QStringView(table.shown), QLatin1String(table.name),
                         QStringView(column.shown), QLatin1String(column.name)));
  }
}

bool isThere(Connection& database, const Index& index) {
  const QByteArray sql =
      QByteArray("SELECT count(*) FROM sqlite_schema WHERE type='index' AND name='") + index.name +
      "'";
  return database.numberFrom(sql) == 1;
}

bool hasAllIndices(Connection& database) {
  return std::all_of(kIndices.begin(), kIndices.end(),
                     [&](const Index& index) { return isThere(database, index); });
}

bool isOnlyALostSpeedUp(StoreFault fault) {
  return fault == StoreFault::ReadOnly || fault == StoreFault::DiskFull ||
         fault == StoreFault::Busy || fault == StoreFault::InputOutput;
}

}  // namespace

void createSchedule(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
    const bool isThere = file.exists();
    throw StoreError(
        isThere ? StoreFault::Other : StoreFault::InputOutput,
        (isThere ? u"日程文件已经存在，没有新建：%1。"_qs : u"不能新建日程文件：%1。"_qs)
            .arg(path));
  }
  file.close();
  try {
    fill(path);
  } catch (const SQLite::Exception& failure) {
    file.remove();
    throw engineError(failure.getExtendedErrorCode(), QString::fromUtf8(failure.what()));
  }
}

void requireSchema(Connection& database) {
  for (const SchemaTable& table : schemaTables()) {
    requireTable(database, table);
    requireColumns(database, table);
  }
}

void requireWholeFile(Connection& database, const QString& path) {
  const qint64 size =
      database.numberFrom("PRAGMA page_count") * database.numberFrom("PRAGMA page_size");
  if (QFileInfo(path).size() < size) throw engineError(SQLITE_CORRUPT, {});
}

bool isSound(Connection& database) {
  return database.numberFrom("SELECT quick_check='ok' FROM pragma_quick_check(1)") == 1;
}

void addMissingIndices(Connection& database) {
  if (database.isReadOnly() || hasAllIndices(database)) return;
  try {
    // What is written into a damaged file can land on pages that still hold rows.
    if (!isSound(database)) return;
    for (const Index& index : kIndices) database.run(creation(index));
  } catch (const StoreError& failure) {
    if (!isOnlyALostSpeedUp(failure.fault())) throw;
  }
}

}  // namespace vellora
