#pragma once

#include <QListWidget>
#include <QStringList>

namespace vellora {

// The places a backup can go to: drives where the system has letters for them, otherwise the home
// folder, / and the mounted volumes.
QStringList backupDrives();
// The innermost of the drives that the folder lies on; empty when there is none.
QString driveOf(const QString& folder, const QStringList& drives);

// Lists the folders inside one folder; activating an entry goes there, the first goes up.
class FolderList : public QListWidget {
  Q_OBJECT

 public:
  explicit FolderList(QWidget* parent = nullptr);

  QString path() const { return path_; }
  void setPath(const QString& path);

 signals:
  void pathChanged(const QString& path);

 private:
  void enter(const QListWidgetItem& item);

  QString path_;
};

}  // namespace vellora
