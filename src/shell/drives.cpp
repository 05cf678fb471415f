#include "shell/drives.h"

#include "grid/files/file_error.h"

#include <QDir>

namespace vellora {

namespace {

bool namesDrive(const QString& path) {
  return path.size() >= 2 && path[1] == u':' && path[0].unicode() < 0x80 && path[0].isLetter();
}

}  // namespace

bool hasDriveLetters() {
  return QDir::rootPath() != u"/"_qs;
}

QString realPath(const QString& givenPath, const QString& currentDriveRoot) {
  QString path = givenPath;
  path.replace(u'\\', u'/');
  if (namesDrive(path)) {
    if (hasDriveLetters()) return QDir::cleanPath(path);
    throw FileError(u"这台电脑没有盘符“%1”；以“\\”开头的路径在主文件夹里。"_qs.arg(path.left(2)));
  }
  const bool isSystemPath = givenPath.startsWith(u'/');
  return QDir::cleanPath(isSystemPath ? path : currentDriveRoot + u'/' + path);
}

QString realPath(const QString& givenPath) {
  return realPath(givenPath, QDir::homePath());
}

}  // namespace vellora
