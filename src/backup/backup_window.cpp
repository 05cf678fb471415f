#include "backup/backup_window.h"

#include "backup/backup_path.h"
#include "backup/folder_list.h"
#include "grid/files/file_error.h"
#include "grid/surface/grid_surface.h"
#include "schedule/backup.h"
#include "shell/controls.h"
#include "shell/work_dialog.h"
#include "store/store_error.h"
#include "store/undo_log.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace vellora {

BackupWindow::BackupWindow(ApplicationState& state, QWidget* parent)
    : PlannerWindow(state, parent),
      drives_(named(new QComboBox(this), u"Drive1"_qs, u"驱动器"_qs)),
      folders_(named(new FolderList(this), u"Dir1"_qs, u"文件夹"_qs)),
      name_(named(new QLineEdit(this), u"Txt5"_qs, u"文件名"_qs)),
      path_(named(new QLineEdit(this), u"Txt3"_qs, u"备份文件"_qs)),
      grid_(named(new GridSurface(this), u"Cell1"_qs, u"备份内容"_qs)) {
  setObjectName(u"BackupWindow"_qs);
  setWindowTitle(u"数据备份恢复:请谨慎操作."_qs);
  grid_->setEditable(false);
  grid_->setHeadingStripVisible(false);
  layOut();
  drives_->addItems(backupDrives());
  connect(drives_, &QComboBox::activated, this, &BackupWindow::goToDrive);
  connect(folders_, &FolderList::pathChanged, this, &BackupWindow::showPath);
  connect(name_, &QLineEdit::textChanged, this, &BackupWindow::showPath);
}

void BackupWindow::layOut() {
  auto* all = new QVBoxLayout(this);
  all->addLayout(makePlaces());
  all->addWidget(makeLabel(u"备份内容:"_qs, grid_));
  all->addWidget(grid_, 1);
  all->addLayout(makeButtons());
  resize(640, 600);
}

QLayout* BackupWindow::makePlaces() {
  auto* chosen = new QHBoxLayout;
  chosen->addWidget(path_, 1);
  auto* open = makeButton(u"cmdOPEN"_qs, u"打开(&F)…"_qs, this, [this] { chooseFile(); });
  chosen->addWidget(open);
  setTabOrder(path_, open);
  setTabOrder(open, grid_);
  auto* places = new QFormLayout;
  places->addRow(u"驱 动 器:"_qs, drives_);
  places->addRow(u"文 件 夹:"_qs, folders_);
  places->addRow(u"文 件 名:"_qs, name_);
  places->addRow(u"备份文件:"_qs, chosen);
  if (auto* label = qobject_cast<QLabel*>(places->labelForField(chosen))) label->setBuddy(path_);
  folders_->setMinimumHeight(folders_->fontMetrics().lineSpacing() * 6);
  return places;
}

QLayout* BackupWindow::makeButtons() {
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(makeButton(u"cmdO"_qs, u"备份(&O)"_qs, this, [this] { backUp(); }));
  buttons->addWidget(makeButton(u"CmdI"_qs, u"恢复(&I)"_qs, this, [this] { restore(); }));
  buttons->addWidget(makeButton(u"CmdEND"_qs, u"关闭(&Q)"_qs, this, [this] { close(); }));
  return buttons;
}

void BackupWindow::onLoad() {
  const QString folder = state().programDir.isEmpty() ? QDir::homePath() : state().programDir;
  drives_->setCurrentText(driveOf(folder, backupDrives()));
  name_->setText(backupFileName(state().clock.today()));
  folders_->setPath(folder);
}

// Closing in the middle of the work would take away what it reports to.
void BackupWindow::closeEvent(QCloseEvent* event) {
  if (busy_) {
    event->ignore();
  } else {
    PlannerWindow::closeEvent(event);
  }
}

void BackupWindow::showPath() {
  drives_->setCurrentText(driveOf(folders_->path(), backupDrives()));
  path_->setText(joinedPath(folders_->path(), name_->text()));
}

void BackupWindow::goToDrive() {
  folders_->setPath(drives_->currentText());
}

void BackupWindow::chooseFile() {
  const QString chosen =
      prompts().chooseFile(this, u"文件打开"_qs, u"日程表备份文件|*.KTZ"_qs, folders_->path());
  if (!chosen.isEmpty()) path_->setText(chosen);
}

QString BackupWindow::file() const {
  return systemPath(path_->text(), QDir::homePath());
}

void BackupWindow::backUp() {
  run({u"备份已正确完成, 共 %1 条记录 ！"_qs, u"数据未能正确备份！"_qs},
      [this](const WorkProgress& progress) {
        return BackupTables(state().Db, grid_->workbook(), file(), state().programDir, progress);
      });
}

void BackupWindow::restore() {
  const UndoLog::Pause unlogged(state().Db.undoLog());
  run({u"恢复已正确完成, 共 %1 条记录！"_qs, u"数据未能正确恢复！"_qs},
      [this](const WorkProgress& progress) {
        return RestoreTables(state().Db, grid_->workbook(), file(), progress);
      });
}

// The window takes no input while the work goes on; what came of it is told once it does again.
void BackupWindow::run(const Wording& wording, const Job& job) {
  const QPointer<QWidget> focus = focusWidget();
  busy_ = true;
  setEnabled(false);
  const QString outcome = outcomeOf(wording, job);
  setEnabled(true);
  busy_ = false;
  if (focus) focus->setFocus();
  grid_->Redraw();
  if (!outcome.isEmpty()) prompts().warn(this, outcome);
}

QString BackupWindow::outcomeOf(const Wording& wording, const Job& job) {
  try {
    WorkDialog dialog(this);
    return wording.done.arg(job(dialog.progress()));
  } catch (const WrittenFileError& error) {
    return error.description();
  } catch (const PlannerError& error) {
    if (error.number() == static_cast<int>(StoreFault::SavedDespiteError)) {
      return error.description();
    }
    return u"错误：%1 %2\n\n%3"_qs.arg(QString::number(error.number()), error.description(),
                                       wording.failed);
  } catch (const WorkCancelled&) {
    return {};  // as the user wished
  }
}

}  // namespace vellora
