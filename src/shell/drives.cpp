#include "shell/drives.h"

#include <QDir>

namespace vellora {

QString realPath(const QString& givenPath, const QString& currentDriveRoot) {
  QString path = givenPath;
  path.replace(u'\\', u'/');
  const bool isSystemPath = givenPath.startsWith(u'/');
  return QDir::cleanPath(isSystemPath ? path : currentDriveRoot + u'/' + path);
}

QString realPath(const QString& givenPath) {
  return realPath(givenPath, QDir::homePath());
}

QString fileNameFor(const QString& wanted) {
  QString name = wanted;
  for (QChar& unit : name) {
    if (unit < u' ' || unit == u'\x7F' || QStringView(u"\\/:*?\"<>|").contains(unit)) unit = u'_';
  }
  return name;
}

}  // namespace vellora
