#include "exchange/calendar_export_window.h"

#include "grid/files/export_file.h"
#include "routine/calendar_text.h"
#include "shell/controls.h"
#include "shell/date_picker.h"
#include "shell/drives.h"
#include "shell/work_dialog.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace vellora {
namespace {

constexpr int kMostMinutes = 1'440;  // of a reminder
constexpr int kUsualMinutes = 15;
const QString kExtension = u".ics"_qs;

}  // namespace

CalendarExportWindow::CalendarExportWindow(ApplicationState& state, QDate firstDay,
                                           const QString& activity, QWidget* parent)
    : PlannerWindow(state, parent),
      first_day_(firstDay),
      activity_(activity),
      scope_(named(new QComboBox(this), u"Scope"_qs)),
      activities_(named(new QComboBox(this), u"Activity"_qs)),
      first_(new DatePicker(u"First"_qs, u"起始日期"_qs, state.clock, this)),
      last_(new DatePicker(u"Last"_qs, u"截止日期"_qs, state.clock, this)),
      memos_(named(new QCheckBox(u"连同每日备忘，作为全天事项(&B)"_qs, this), u"Memos"_qs)),
      reminds_(named(new QCheckBox(u"提前提醒(&T)"_qs, this), u"Reminds"_qs)),
      minutes_(named(new QSpinBox(this), u"Minutes"_qs, u"提前的分钟数"_qs)),
      path_(named(new QLineEdit(this), u"Path"_qs)) {
  setObjectName(u"CalendarExportWindow"_qs);
  setWindowTitle(u"导出日历"_qs);
  scope_->addItems({u"显示的一周"_qs, u"一项活动的全部安排"_qs, u"选定的日期"_qs});
  minutes_->setRange(0, kMostMinutes);
  minutes_->setValue(kUsualMinutes);
  minutes_->setSuffix(u" 分钟"_qs);
  layOut();
  connect(scope_, &QComboBox::currentIndexChanged, this, &CalendarExportWindow::showScope);
  connect(activities_, &QComboBox::currentIndexChanged, this, &CalendarExportWindow::proposeFile);
  connect(first_, &DatePicker::dateChanged, this, &CalendarExportWindow::proposeFile);
  connect(last_, &DatePicker::dateChanged, this, &CalendarExportWindow::proposeFile);
  connect(reminds_, &QCheckBox::toggled, minutes_, &QWidget::setEnabled);
}

void CalendarExportWindow::layOut() {
  auto* all = new QVBoxLayout(this);
  all->addLayout(makeForm());
  auto* hint = new QLabel(
      u"手机、邮件和其他日历程序都能读入 .ics 文件。再次导出并读入，会更新以前读入的事项。"_qs,
      this);
  hint->setWordWrap(true);
  all->addWidget(hint);
  all->addWidget(statusLine());
  all->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(makeButton(u"Export"_qs, u"导出(&O)"_qs, this, [this] { exportFile(); }));
  buttons->addWidget(makeButton(u"Close"_qs, u"关闭(&Q)"_qs, this, [this] { close(); }));
  all->addLayout(buttons);
  constexpr int kCharacters = 26;
  path_->setMinimumWidth(path_->fontMetrics().horizontalAdvance(u'周') * kCharacters);
}

QFormLayout* CalendarExportWindow::makeForm() {
  auto* form = new QFormLayout;
  form->addRow(u"范围(&F)"_qs, scope_);
  form->addRow(u"活动(&H)"_qs, activities_);
  form->addRow(u"起始日期(&R)"_qs, first_);
  form->addRow(u"截止日期(&E)"_qs, last_);
  form->addRow(QString(), memos_);
  form->addRow(QString(), makeReminder());
  form->addRow(u"文件(&J)"_qs, path_);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  return form;
}

QWidget* CalendarExportWindow::makeReminder() {
  auto* line = new QWidget(this);
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins({});
  row->addWidget(reminds_);
  row->addWidget(minutes_);
  row->addStretch();
  return line;
}

void CalendarExportWindow::onLoad() {
  try {
    QStringList names;
    auto items = state().Db.open(statements::allItems());
    for (; !items.atEnd(); items.moveNext()) names << items.text(u"HDMC");
    if (!activity_.isEmpty() && !names.contains(activity_)) names.prepend(activity_);
    names.removeDuplicates();
    activities_->addItems(names);
  } catch (const StoreError& error) {
    showMessage(error.description());
  }
  activities_->setMinimumContentsLength(12);
  activities_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  activities_->setCurrentText(activity_);
  minutes_->setEnabled(false);
  showScope();
}

// A week's days are shown, and cannot be changed.
void CalendarExportWindow::showScope() {
  const int scope = scope_->currentIndex();
  if (scope == Week) {
    first_->setDate(first_day_);
    last_->setDate(first_day_.addDays(kDaysInAWeek - 1));
  }
  activities_->setEnabled(scope == Activity);
  first_->setEnabled(scope == Days);
  last_->setEnabled(scope == Days);
  memos_->setEnabled(scope != Activity);
  proposeFile();
}

void CalendarExportWindow::proposeFile() {
  if (path_->text() != proposed_) return;
  const bool isActivity = scope_->currentIndex() == Activity;
  const QString days = isoDate(first_->date()) + u" 至 " + isoDate(last_->date());
  proposed_ = u'\\' + fileNameFor((isActivity ? activities_->currentText() : u"日程 "_qs + days)) +
              kExtension;
  path_->setText(proposed_);
}

CalendarSelection CalendarExportWindow::selection() const {
  const bool isActivity = scope_->currentIndex() == Activity;
  CalendarSelection selection{first_->date(), last_->date()};
  if (isActivity) selection.activity = activities_->currentText();
  selection.withMemos = memos_->isChecked() && !isActivity;
  if (reminds_->isChecked()) selection.reminder = minutes_->value();
  return selection;
}

QString CalendarExportWindow::file() const {
  const QString typed = path_->text().trimmed();
  if (QFileInfo(typed).completeBaseName().isEmpty() || typed.endsWith(u'\\')) {
    throw FileError(u"请写出文件名。"_qs);
  }
  return realPath(typed.contains(u'.') ? typed : QString(typed + kExtension));
}

void CalendarExportWindow::exportFile() {
  showMessage({});
  const CalendarSelection chosen = selection();
  const bool isActivity = scope_->currentIndex() == Activity;
  if (isActivity && chosen.activity.isEmpty()) return showMessage(u"还没有活动项目。"_qs);
  if (!isActivity && chosen.first > chosen.last) {
    return showMessage(u"起始日期在截止日期之后。"_qs);
  }
  try {
    const QString path = file();
    const bool isThere = QFileInfo::exists(path);
    if (isThere && !prompts().ask(this, u"文件“%1”已经存在，要替换它吗？"_qs.arg(path))) return;
    CalendarCounts counts;
    runWithDialog(this, [&](const WorkProgress& progress) {
      counts = exportCalendar(state().Db, chosen, path, QDateTime::currentDateTimeUtc(), progress);
    });
    tell(counts);
  } catch (const PlannerError& error) {
    prompts().warn(this, error.description());
  } catch (const WorkCancelled&) {
    // as the user wished; the old file stays
  }
}

void CalendarExportWindow::tell(const CalendarCounts& counts) {
  QString text = u"已导出 %1 项安排"_qs.arg(counts.plans);
  if (memos_->isChecked() && memos_->isEnabled()) text += u"、%1 则备忘"_qs.arg(counts.memos);
  text += u"：%1"_qs.arg(path_->text());
  if (counts.leftOut > 0) {
    text += u"\n%1 项没有导出：它们的时间块已经没有，或没有起止时间。"_qs.arg(counts.leftOut);
  }
  prompts().inform(this, text);
  close();
}

}  // namespace vellora
