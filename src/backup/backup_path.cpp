#include "backup/backup_path.h"

#include "grid/files/file_error.h"
#include "routine/calendar_text.h"
#include "shell/drives.h"

#include <QDir>

namespace vellora {

QString backupFileName(QDate day) {
  return u"日程表备份"_qs + isoDate(day) + u".KTZ"_qs;
}

QString joinedPath(const QString& folder, const QString& name) {
  const bool endsInSeparator = folder.endsWith(u'/') || folder.endsWith(u'\\');
  return endsInSeparator ? QString(folder + name) : QString(folder + QDir::separator() + name);
}

QString systemPath(const QString& text, const QString& homeFolder) {
  QString path = text.trimmed();
  const bool isGiven = path.startsWith(u'\\') || path.mid(1, 1) == u":";
  const bool namesFile = !path.endsWith(u'/') && !path.endsWith(u'\\');
  if (namesFile && path.startsWith(u'/')) return path;
  if (namesFile && isGiven) return realPath(path, homeFolder);
  throw FileError(u"备份文件的路径“%1”不完整。"_qs.arg(text));
}

}  // namespace vellora
