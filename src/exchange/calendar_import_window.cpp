#include "exchange/calendar_import_window.h"

#include "exchange/import_rows.h"
#include "grid/surface/grid_surface.h"
#include "routine/category.h"
#include "shell/controls.h"
#include "shell/date_picker.h"
#include "shell/elided_label.h"
#include "shell/work_dialog.h"
#include "store/store_error.h"
#include "store/undo_log.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace vellora {
namespace {

constexpr int kActivityLines = 4;  // that the list of new activities opens with

QString withoutItem() {
  return u"不加入活动项目"_qs;
}

QString lineOf(const NewActivity& activity) {
  const QString& category = activity.category.isEmpty() ? withoutItem() : activity.category;
  return u"%1（%2 次）：%3"_qs.arg(activity.name).arg(activity.count).arg(category);
}

}  // namespace

CalendarImportWindow::CalendarImportWindow(ApplicationState& state, QWidget* parent)
    : PlannerWindow(state, parent),
      name_(named(new ElidedLabel(this), u"FileName"_qs)),
      first_(new DatePicker(u"First"_qs, u"起始日期"_qs, state.clock, this)),
      last_(new DatePicker(u"Last"_qs, u"截止日期"_qs, state.clock, this)),
      grid_(named(new GridSurface(this), u"Cell1"_qs, u"要导入的事项"_qs)),
      replace_all_(
          makeButton(u"ReplaceAll"_qs, u"全部替换(&T)"_qs, this, [this] { setAll(true); })),
      keep_all_(makeButton(u"KeepAll"_qs, u"全部保留(&K)"_qs, this, [this] { setAll(false); })),
      activities_(named(new QListWidget(this), u"NewActivities"_qs, u"新的活动"_qs)),
      category_(named(new QComboBox(this), u"Category"_qs)),
      memos_(named(new QCheckBox(u"全天事项记入备忘(&B)"_qs, this), u"Memos"_qs)),
      summary_(named(new QLabel(this), u"Summary"_qs)),
      import_button_(makeButton(u"Import"_qs, u"导入(&I)"_qs, this, [this] { save(); })) {
  setObjectName(u"CalendarImportWindow"_qs);
  setWindowTitle(u"导入日历"_qs);
  grid_->setEditable(false);
  grid_->setEmptyHint(u"请按“打开”选一个日历文件（.ics），这里先列出它的事项。"_qs);
  setUpImportRows(grid_->sheet());
  answerGridKeys(*grid_, [] { return u"导入日历"_qs; });
  activities_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  for (const Category& category : categories()) category_->addItem(category.label);
  category_->addItem(withoutItem());
  summary_->setWordWrap(true);
  summary_->setTextFormat(Qt::PlainText);
  layOut();
  connect(first_, &DatePicker::dateChanged, this, &CalendarImportWindow::compare);
  connect(last_, &DatePicker::dateChanged, this, &CalendarImportWindow::compare);
  connect(grid_, &GridSurface::CellActivated, this, [this](int, int row) { toggle(row); });
  connect(grid_, &GridSurface::CellClick, this, [this](int col, int row) {
    if (col == kImportFate) toggle(row);
  });
  connect(activities_, &QListWidget::currentRowChanged, this, &CalendarImportWindow::showCategory);
  connect(category_, &QComboBox::activated, this, &CalendarImportWindow::setCategory);
  connect(memos_, &QCheckBox::toggled, this, [this] {
    for (int row = 0; row < grid_->Rows(); ++row) {
      showFate(grid_->sheet(), row, import_.lines[static_cast<std::size_t>(row)],
               memos_->isChecked());
    }
    grid_->Redraw();
    updateButtons();
  });
}

void CalendarImportWindow::layOut() {
  auto* all = new QVBoxLayout(this);
  all->addLayout(makeFileLine());
  all->addWidget(summary_);
  all->addWidget(grid_, 1);
  all->addLayout(makeConflictLine());
  all->addLayout(makeActivities());
  all->addWidget(statusLine());
  all->addLayout(makeButtons());
  resize(900, 640);
}

QLayout* CalendarImportWindow::makeFileLine() {
  auto* open = makeButton(u"Open"_qs, u"打开(&F)…"_qs, this, [this] { chooseFile(); });
  auto* line = new QHBoxLayout;
  line->addWidget(open);
  line->addWidget(name_, 1);
  setTabOrder(open, first_);
  for (auto* picker : {first_, last_}) {
    const QString letter = picker == first_ ? u"(&R)"_qs : u"(&E)"_qs;
    line->addWidget(makeLabel(picker->accessibleName() + letter, picker));
    line->addWidget(picker);
  }
  return line;
}

QLayout* CalendarImportWindow::makeConflictLine() {
  auto* line = new QHBoxLayout;
  line->addWidget(new QLabel(
      u"左边有橙色标记的行已有别的安排：按空格或点“处理”一格，换成替换或保留。"_qs, this));
  line->addStretch();
  line->addWidget(replace_all_);
  line->addWidget(keep_all_);
  return line;
}

QLayout* CalendarImportWindow::makeActivities() {
  auto* column = new QVBoxLayout;
  column->addWidget(makeLabel(u"类别(&L)"_qs, category_));
  column->addWidget(category_);
  column->addWidget(memos_);
  column->addStretch();
  auto* list = new QVBoxLayout;
  list->addWidget(makeLabel(u"新的活动，选中后定它的类别(&N)"_qs, activities_));
  list->addWidget(activities_);
  auto* both = new QHBoxLayout;
  both->addLayout(list, 1);
  both->addLayout(column);
  activities_->setFixedHeight((kActivityLines + 1) * activities_->fontMetrics().lineSpacing());
  setTabOrder(activities_, category_);
  return both;
}

QLayout* CalendarImportWindow::makeButtons() {
  auto* line = new QHBoxLayout;
  line->addStretch();
  line->addWidget(import_button_);
  auto* cancel = makeButton(u"Cancel"_qs, u"取消(&Q)"_qs, this, [this] { close(); });
  line->addWidget(cancel);
  setTabOrder(memos_, import_button_);
  setTabOrder(import_button_, cancel);
  return line;
}

void CalendarImportWindow::onLoad() {
  folder_ = QDir::homePath();
  const QSignalBlocker nothingIsOpen(first_);
  const QSignalBlocker nothingToCompare(last_);
  first_->setDate(state().clock.today());
  last_->setDate(state().clock.today());
  name_->setText(u"还没有打开日历文件。"_qs);
  summary_->setText(u"导入以前先列出文件里的事项，这时还什么都没有写入。"_qs);
  updateButtons();
}

void CalendarImportWindow::onActivate() {
  if (!std::exchange(has_asked_, true)) QTimer::singleShot(0, this, [this] { chooseFile(); });
}

void CalendarImportWindow::chooseFile() {
  const QString path =
      prompts().chooseFile(this, u"导入日历"_qs, u"日历文件|*.ics *.ICS *.ical"_qs, folder_);
  if (!path.isEmpty()) open(path);
}

void CalendarImportWindow::open(const QString& path) {
  folder_ = QFileInfo(path).path();
  CalendarFile file;
  const bool isRead =
      guarded([&](const WorkProgress& progress) { file = readCalendarFile(path, progress); });
  if (!isRead) return;
  show({});
  file_ = std::move(file);
  name_->setText(QFileInfo(path).fileName());
  const auto [first, last] = proposedDays(file_, state().clock.today());
  {
    const QSignalBlocker oneComparison(first_);
    const QSignalBlocker isEnough(last_);
    first_->setDate(first);
    last_->setDate(last);
  }
  compare();
  grid_->Focus();
}

void CalendarImportWindow::compare() {
  show({});
  if (first_->date() > last_->date()) {
    return summary_->setText(u"起始日期在截止日期之后。"_qs);
  }
  CalendarImport import;
  const bool isDone = guarded([&](const WorkProgress& progress) {
    occurrences_ =
        occurrencesIn(file_, first_->date(), last_->date(), QTimeZone::systemTimeZone(), progress);
    import = planImport(state().Db, occurrences_, progress);
    blocks_ = TimeBlockList(state().Db);
  });
  if (!isDone) return summary_->setText(u"没有列出：请选别的日期，或打开别的文件。"_qs);
  show(std::move(import));
  summary_->setText(importSummary(import_, occurrences_));
}

void CalendarImportWindow::show(CalendarImport import) {
  import_ = std::move(import);
  if (import_.lines.empty()) {
    grid_->SetRows(0);
  } else {
    showImport(grid_->sheet(), import_, blocks_, memos_->isChecked());
    grid_->Redraw();
    grid_->SetCurrentCell(kImportFate, 0);
    markConflicts();
  }
  activities_->clear();
  for (const NewActivity& activity : import_.activities) activities_->addItem(lineOf(activity));
  activities_->setCurrentRow(import_.activities.empty() ? -1 : 0);
  updateButtons();
}

void CalendarImportWindow::markConflicts() {
  std::vector<RowMark> marks;
  for (int row = 0; row < grid_->Rows(); ++row) {
    const ImportLine& line = import_.lines[static_cast<std::size_t>(row)];
    if (line.state == ImportState::Taken) marks.push_back({row, u"已有别的安排"_qs});
  }
  grid_->markRows(std::move(marks));
}

void CalendarImportWindow::showCategory() {
  const int row = activities_->currentRow();
  if (row < 0 || row >= std::ssize(import_.activities)) return;
  const QString& category = import_.activities[static_cast<std::size_t>(row)].category;
  category_->setCurrentText(category.isEmpty() ? withoutItem() : category);
}

// Of every selected activity.
void CalendarImportWindow::setCategory() {
  const bool isItem = category_->currentIndex() < kCategoryCount;
  for (int row = 0; row < activities_->count(); ++row) {
    if (!activities_->item(row)->isSelected()) continue;
    NewActivity& activity = import_.activities[static_cast<std::size_t>(row)];
    activity.category = isItem ? category_->currentText() : QString();
    activities_->item(row)->setText(lineOf(activity));
  }
  updateButtons();
}

void CalendarImportWindow::setReplaces(int row, bool replaces) {
  ImportLine& line = import_.lines[static_cast<std::size_t>(row)];
  if (line.state != ImportState::Taken) return;
  line.replaces = replaces;
  showFate(grid_->sheet(), row, line, memos_->isChecked());
}

void CalendarImportWindow::setAll(bool replace) {
  for (int row = 0; row < grid_->Rows(); ++row) setReplaces(row, replace);
  grid_->Redraw();
  updateButtons();
}

void CalendarImportWindow::toggle(int row) {
  if (row < 0 || row >= grid_->Rows()) return;
  setReplaces(row, !import_.lines[static_cast<std::size_t>(row)].replaces);
  grid_->Redraw();
  updateButtons();
}

// The button says nothing that would not happen.
void CalendarImportWindow::updateButtons() {
  const auto has = [this](ImportState state) {
    return std::any_of(import_.lines.begin(), import_.lines.end(),
                       [state](const ImportLine& line) { return line.state == state; });
  };
  const ImportCounts counts = countImport(import_, memos_->isChecked());
  QStringList parts;
  if (counts.plans > 0) parts << u"%1 项安排"_qs.arg(counts.plans);
  if (counts.items > 0) parts << u"%1 个新的活动项目"_qs.arg(counts.items);
  if (counts.memos > 0) parts << u"%1 则备忘"_qs.arg(counts.memos);
  showMessage(parts.isEmpty() ? QString() : u"将导入 "_qs + parts.join(u"、"_qs) + u"。");
  import_button_->setEnabled(!parts.isEmpty());
  replace_all_->setEnabled(has(ImportState::Taken));
  keep_all_->setEnabled(has(ImportState::Taken));
  activities_->setEnabled(!import_.activities.empty());
  category_->setEnabled(!import_.activities.empty());
  memos_->setEnabled(has(ImportState::WholeDay));
}

void CalendarImportWindow::save() {
  ImportCounts counts;
  state().Db.undoLog().setName(u"导入日历“%1”"_qs.arg(name_->text()));
  const bool isSaved = guarded([&](const WorkProgress& progress) {
    counts = saveImport(state().Db, import_, memos_->isChecked(), progress);
  });
  if (!isSaved) return;
  QString text = u"已导入 %1 项安排"_qs.arg(counts.plans);
  if (counts.items > 0) text += u"，新建 %1 个活动项目"_qs.arg(counts.items);
  if (counts.memos > 0) text += u"，记入 %1 则备忘"_qs.arg(counts.memos);
  prompts().inform(this, text + u"。在周表上按 Ctrl+Z 可以撤消。");
  close();
}

bool CalendarImportWindow::guarded(const std::function<void(const WorkProgress&)>& work) {
  try {
    runWithDialog(this, work);
    return true;
  } catch (const PlannerError& error) {
    prompts().warn(this, error.description());
  } catch (const WorkCancelled&) {
    // as the user wished; nothing was changed
  }
  return false;
}

}  // namespace vellora
