#include "faults/schedule_folder.h"

#include "support/schedule_dump.h"
#include "support/temporary_folder.h"

#include <QCryptographicHash>

#include <SQLiteCpp/Database.h>

namespace vellora::test {
namespace {

using Places = QMap<QString, QString>;

QStringList namesIn(const QString& folder) {
  return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

// A PDF file holds the moment at which it was written.
QString hashOf(QByteArray bytes) {
  bytes.remove(bytes.indexOf("/CreationDate"), 40);
  return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

// What is missing counts as well: it must be missing in one of both.
bool isMixOf(const Places& now, const Places& before, const Places& after) {
  const auto places = now.keys() + before.keys() + after.keys();
  return std::all_of(places.begin(), places.end(), [&](const QString& place) {
    const QString found = now.value(place);
    return found == before.value(place) || found == after.value(place);
  });
}

}  // namespace

FolderContent contentOf(const QString& folder) {
  const QString schedule = folder + u"/SY.mdb"_qs;
  ScheduleStore store(schedule);
  SQLite::Database database(schedule.toStdString(), SQLite::OPEN_READONLY);
  const std::string found = database.execAndGet("PRAGMA integrity_check").getString();
  if (found != "ok") throw std::runtime_error(found);
  FolderContent content;
  for (const QString& row : dumpOf(store)) {
    const QString place = row.startsWith(u"JH|"_qs) ? row.section(u'|', 0, 2) : row;
    if (content.rows.contains(place)) throw std::runtime_error("two rows in one place");
    content.rows[place] = row;
  }
  for (const QString& name : namesIn(folder)) {
    if (name.startsWith(u"SY.mdb"_qs)) continue;
    content.files[name] = hashOf(bytesOf(folder + u'/' + name));
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
  return (isWhole || (byEntry && isMixOf(now.rows, before.rows, after.rows))) &&
         isMixOf(now.files, before.files, after.files);
}

}  // namespace vellora::test
