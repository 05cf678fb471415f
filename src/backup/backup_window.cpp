#include "backup/backup_window.h"

#include "backup/backup_path.h"
#include "backup/folder_list.h"
#include "grid/files/file_error.h"
#include "grid/surface/grid_surface.h"
#include "schedule/automatic_copies.h"
#include "schedule/backup.h"
#include "shell/controls.h"
#include "shell/work_dialog.h"
#include "store/schema_tables.h"
#include "store/store_error.h"
#include "store/undo_log.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
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
      copies_(named(new QListWidget(this), u"Copies"_qs, u"自动备份"_qs)),
      tables_(named(new QComboBox(this), u"Tables"_qs)),
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
  connect(copies_, &QListWidget::itemActivated, this, &BackupWindow::restoreCopy);
  connect(tables_, &QComboBox::currentIndexChanged, this, [this](int table) {
    if (table < 0) return;
    grid_->workbook().SetCurrentSheet(table);
    grid_->Redraw();
  });
}

void BackupWindow::layOut() {
  auto* all = new QVBoxLayout(this);
  all->addLayout(makePlaces());
  all->addLayout(makeCopies());
  auto* content = new QHBoxLayout;
  content->addWidget(makeLabel(u"备份内容:"_qs, tables_));
  content->addWidget(tables_);
  content->addStretch();
  all->addLayout(content);
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
  setTabOrder(open, copies_);
  auto* places = new QFormLayout;
  places->addRow(u"驱 动 器:"_qs, drives_);
  places->addRow(u"文 件 夹:"_qs, folders_);
  places->addRow(u"文 件 名:"_qs, name_);
  places->addRow(u"备份文件:"_qs, chosen);
  if (auto* label = qobject_cast<QLabel*>(places->labelForField(chosen))) label->setBuddy(path_);
  folders_->setMinimumHeight(folders_->fontMetrics().lineSpacing() * 6);
  return places;
}

QLayout* BackupWindow::makeCopies() {
  constexpr int kShownCopies = 4;
  constexpr int kTableNameLength = 20;  // with its number of rows
  copies_->setFixedHeight(copies_->fontMetrics().lineSpacing() * (kShownCopies + 1));
  tables_->setMinimumContentsLength(kTableNameLength);
  tables_->hide();  // until there is some content
  auto* restore = makeButton(u"RestoreCopy"_qs, u"恢复到…(&T)"_qs, this, [this] { restoreCopy(); });
  setTabOrder(copies_, restore);
  setTabOrder(restore, tables_);
  setTabOrder(tables_, grid_);
  auto* row = new QHBoxLayout;
  row->addWidget(copies_, 1);
  row->addWidget(restore, 0, Qt::AlignTop);
  auto* copies = new QVBoxLayout;
  copies->addWidget(makeLabel(u"自动备份(&A):"_qs, copies_));
  copies->addLayout(row);
  return copies;
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
  listCopies();
}

void BackupWindow::listCopies() {
  copies_->clear();
  for (const AutomaticCopy& copy : AutomaticCopies(state().programDir).list()) {
    auto* line = new QListWidgetItem(
        u"%1    %2 条计划，一共 %3 条记录    %4"_qs.arg(
            QLocale().toString(copy.time, u"yyyy-MM-dd HH:mm"), QString::number(copy.plans),
            QString::number(copy.records), QLocale().formattedDataSize(copy.bytes)),
        copies_);
    line->setData(Qt::UserRole, copy.path);
  }
  copies_->setCurrentRow(0);
}

void BackupWindow::restoreCopy() {
  const QListWidgetItem* chosen = copies_->currentItem();
  if (!chosen) return prompts().warn(this, u"还没有自动备份。"_qs);
  const QString when = chosen->text().section(u"    "_qs, 0, 0);
  if (!prompts().ask(this, u"要把全部内容恢复到 %1 吗？现在的内容会先自动备份。"_qs.arg(when)))
    return;
  restoreFrom(chosen->data(Qt::UserRole).toString());
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
  restoreFrom({});
}

// From the chosen file when none is given.
void BackupWindow::restoreFrom(const QString& given) {
  if (!state().copyFirst(this)) return;
  const UndoLog::Pause unlogged(state().Db.undoLog());
  run({u"恢复已正确完成, 共 %1 条记录！"_qs, u"数据未能正确恢复！"_qs},
      [this, given](const WorkProgress& progress) {
        return RestoreTables(state().Db, grid_->workbook(), given.isEmpty() ? file() : given,
                             progress);
      });
  listCopies();
}

// The content has more than one table.
void BackupWindow::showTables() {
  const Workbook& content = grid_->workbook();
  tables_->clear();
  for (int k = 0; k < std::min(kBackedUpTables, content.SheetCount()); ++k) {
    if (content.SheetName(k) != backedUpTable(k)) return;
    tables_->addItem(u"%1（%2 行）"_qs.arg(shownTable(backedUpTable(k)),
                                           QString::number(content.sheetAt(k).Rows())));
  }
  tables_->show();
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
  showTables();
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
