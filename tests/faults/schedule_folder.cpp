#include "faults/schedule_folder.h"

#include "store/schedule_store.h"
#include "store/schema.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <algorithm>
#include <set>
#include <stdexcept>

namespace vellora::test {
namespace {

using Files = QMap<QString, QByteArray>;

const QString kSchedule = u"SY.mdb"_qs;

QStringList namesIn(const QString& folder) {
  return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

QStringList rowsOf(SQLite::Database& database, const char* table) {
  QStringList rows;
  SQLite::Statement row(database, std::string("SELECT * FROM ") + table);
  while (row.executeStep()) {
    QStringList cells;
    for (int col = 0; col < row.getColumnCount(); ++col) {
      cells << QString::fromStdString(row.getColumn(col).getString());
    }
    rows << cells.join(u'|');
  }
  rows.sort();
  return rows;
}

QMap<QString, QStringList> tablesOf(const QString& path) {
  SQLite::Database database(path.toStdString(), SQLite::OPEN_READONLY);
  const std::string found = database.execAndGet("PRAGMA integrity_check").getString();
  if (found != "ok") throw std::runtime_error(found);
  QMap<QString, QStringList> tables;
  for (const SchemaTable& table : schemaTables()) {
    tables[QString::fromLatin1(table.name)] = rowsOf(database, table.name);
  }
  return tables;
}

QString placeOf(const QString& planEntry) {
  return planEntry.section(u'|', 0, 1);
}

bool isIn(const QStringList& sorted, const QString& entry) {
  return std::binary_search(sorted.begin(), sorted.end(), entry);
}

// One entry for each place.
bool areOldOrNewEntries(const QStringList& now, const QStringList& before,
                        const QStringList& after) {
  std::set<QString> places;
  for (const QString& entry : now) {
    if (!isIn(before, entry) && !isIn(after, entry)) return false;
    if (!places.insert(placeOf(entry)).second) return false;
  }
  std::set<QString> kept;
  for (const QString& entry : after) kept.insert(placeOf(entry));
  return std::all_of(before.begin(), before.end(), [&](const QString& entry) {
    return places.contains(placeOf(entry)) || !kept.contains(placeOf(entry));
  });
}

bool areOldOrNewFiles(const Files& now, const Files& before, const Files& after) {
  const auto holds = [](const Files& files, const QString& name, const QByteArray& bytes) {
    const auto file = files.constFind(name);
    return file != files.cend() && *file == bytes;
  };
  for (auto file = now.begin(); file != now.end(); ++file) {
    if (!holds(before, file.key(), *file) && !holds(after, file.key(), *file)) return false;
  }
  const QStringList names = before.keys();
  return std::all_of(names.begin(), names.end(),
                     [&](const QString& name) { return now.contains(name); });
}

}  // namespace

FolderContent contentOf(const QString& folder) {
  { const ScheduleStore store(folder + u'/' + kSchedule); }
  FolderContent content{tablesOf(folder + u'/' + kSchedule), {}};
  for (const QString& name : namesIn(folder)) {
    if (!name.startsWith(kSchedule)) content.files[name] = bytesOf(folder + u'/' + name);
  }
  return content;
}

void copyFolder(const QString& from, const QString& to) {
  for (const QString& name : namesIn(to)) QFile::remove(to + u'/' + name);
  for (const QString& name : namesIn(from)) QFile::copy(from + u'/' + name, to + u'/' + name);
}

bool isOldOrNew(const FolderContent& now, const FolderContent& before, const FolderContent& after) {
  return (now.tables == before.tables || now.tables == after.tables) &&
         areOldOrNewFiles(now.files, before.files, after.files);
}

bool isOldOrNewByEntry(const FolderContent& now, const FolderContent& before,
                       const FolderContent& after) {
  const QString plan = u"JH"_qs;
  if (!areOldOrNewEntries(now.tables[plan], before.tables[plan], after.tables[plan])) return false;
  FolderContent rest = now;
  rest.tables[plan] = before.tables[plan];
  return rest.tables == before.tables && areOldOrNewFiles(now.files, before.files, after.files);
}

}  // namespace vellora::test
