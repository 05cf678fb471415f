#include "grid/files/export_file.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>

namespace vellora {
namespace {

const QStringList kNames{u"SY.mdb"_qs, u"SY.mdb-*"_qs,    u"JH.ZRT"_qs,
                         u"*.skn"_qs,  u"vellora.ini"_qs, u"vellora"_qs};

// False where one of them is not there.
bool isSame(const QString& one, const QString& other) {
  std::error_code failure;
  return std::filesystem::equivalent(QFileInfo(one).filesystemFilePath(),
                                     QFileInfo(other).filesystemFilePath(), failure);
}

bool isProgramFile(const QString& path, const QString& programDir) {
  const QFileInfo file(path);
  if (isSame(file.path(), programDir) && QDir::match(kNames, file.fileName())) return true;
  const QDir folder(programDir);
  QStringList own = folder.entryList(kNames, QDir::Files | QDir::Hidden);
  for (QString& name : own) name = folder.filePath(name);
  return std::any_of(own.begin(), own.end(), [&](const QString& one) { return isSame(path, one); });
}

}  // namespace

QString fileNameFor(const QString& wanted) {
  QString name = wanted;
  for (QChar& unit : name) {
    if (unit < u' ' || unit == u'\x7F' || QStringView(u"\\/:*?\"<>|").contains(unit)) unit = u'_';
  }
  return name;
}

void requireNoProgramFile(const QString& path, const QString& programDir) {
  if (!isProgramFile(path, programDir)) return;
  throw FileError(u"无法写入文件“%1”：它是日程表程序自己的文件，请换一个文件名。"_qs.arg(path));
}

void exportFile(const QString& path, const std::function<void(SafeFile& file)>& write) {
  requireNoProgramFile(path);
  SafeFile file(path);
  write(file);
  file.commit();
}

}  // namespace vellora
