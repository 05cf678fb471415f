#include "faults/schedule_folder.h"

#include "support/schedule_dump.h"
#include "support/temporary_folder.h"

#include <SQLiteCpp/Database.h>
#include <set>

namespace vellora::test {
namespace {

QStringList namesIn(const QString& folder) {
  return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

// There is one entry for a date and a block; any other row stands for itself.
QString placeOf(const QString& row) {
  return row.startsWith(u"JH|"_qs) ? row.section(u'|', 0, 2) : row;
}

bool isIn(const QStringList& sorted, const QString& row) {
  return std::binary_search(sorted.begin(), sorted.end(), row);
}

bool areOldOrNewEntries(const QStringList& now, const QStringList& before,
                        const QStringList& after) {
  std::set<QString> places, kept;
  for (const QString& row : now) {
    if (!isIn(before, row) && !isIn(after, row)) return false;
    if (!places.insert(placeOf(row)).second) return false;
  }
  for (const QString& row : after) kept.insert(placeOf(row));
  return std::all_of(before.begin(), before.end(), [&](const QString& row) {
    return places.contains(placeOf(row)) || !kept.contains(placeOf(row));
  });
}

}  // namespace

FolderContent contentOf(const QString& folder) {
  const QString schedule = folder + u"/SY.mdb"_qs;
  ScheduleStore store(schedule);
  SQLite::Database database(schedule.toStdString(), SQLite::OPEN_READONLY);
  const std::string found = database.execAndGet("PRAGMA integrity_check").getString();
  if (found != "ok") throw std::runtime_error(found);
  FolderContent content{dumpOf(store), {}};
  for (const QString& name : namesIn(folder)) {
    if (!name.startsWith(u"SY.mdb"_qs)) content.files[name] = bytesOf(folder + u'/' + name);
  }
  return content;
}

void copyFolder(const QString& from, const QString& to) {
  for (const QString& name : namesIn(to)) QFile::remove(to + u'/' + name);
  for (const QString& name : namesIn(from)) QFile::copy(from + u'/' + name, to + u'/' + name);
}

bool isOldOrNew(const FolderContent& now, const FolderContent& before, const FolderContent& after,
                bool byEntry) {
  const bool isWhole = now.rows == before.rows || now.rows == after.rows;
  if (!isWhole && !(byEntry && areOldOrNewEntries(now.rows, before.rows, after.rows))) return false;
  for (const QString& name : before.files.keys() + now.files.keys()) {
    const auto isAsIn = [&](const FolderContent& content) {
      return now.files.contains(name) && content.files.contains(name) &&
             now.files[name] == content.files[name];
    };
    if (!isAsIn(before) && !isAsIn(after)) return false;
  }
  return true;
}

}  // namespace vellora::test
