#include "backup/folder_list.h"

#include "shell/drives.h"

#include <QDir>
#include <QStorageInfo>

namespace vellora {
namespace {

const QString kUp = u".."_qs;

void addMountedVolumes(QStringList& drives) {
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    const bool isDisk = volume.device().startsWith("/dev/") && QFileInfo(volume.rootPath()).isDir();
    if (isDisk && !drives.contains(volume.rootPath())) drives << volume.rootPath();
  }
}

bool liesIn(const QString& folder, const QString& drive) {
  return folder == drive || folder.startsWith(drive.endsWith(u'/') ? drive : drive + u'/');
}

}  // namespace

QStringList backupDrives() {
  QStringList drives;
  if (hasDriveLetters()) {
    for (const QFileInfo& drive : QDir::drives()) drives << drive.absoluteFilePath();
    return drives;
  }
  drives << QDir::homePath() << QDir::rootPath();
  drives.removeDuplicates();
  addMountedVolumes(drives);
  return drives;
}

QString driveOf(const QString& folder, const QStringList& drives) {
  QString found;
  for (const QString& drive : drives) {
    if (liesIn(folder, drive) && drive.size() > found.size()) found = drive;
  }
  return found;
}

FolderList::FolderList(QWidget* parent) : QListWidget(parent) {
  connect(this, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { enter(*item); });
}

void FolderList::setPath(const QString& path) {
  path_ = path;
  clear();
  const QDir folder(path);
  if (!folder.isRoot()) addItem(kUp);
  addItems(folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase));
  setCurrentRow(0);
  emit pathChanged(path_);
}

void FolderList::enter(const QListWidgetItem& item) {
  setPath(QDir::cleanPath(QDir(path_).absoluteFilePath(item.text())));
}

}  // namespace vellora
