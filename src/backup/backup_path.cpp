#include "backup/backup_path.h"

#include "backup/backup_error.h"
#include "routine/calendar_text.h"

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
  if (path.startsWith(u'\\')) path = homeFolder + path;
  if (!text.trimmed().startsWith(u'/')) path.replace(u'\\', u'/');
  if (QDir::isAbsolutePath(path) && !path.endsWith(u'/')) return path;
  throw BackupError(BackupError::kFile, u"备份文件的路径“%1”不完整。"_qs.arg(text));
}

}  // namespace vellora
