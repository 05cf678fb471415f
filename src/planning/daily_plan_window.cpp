#include "planning/daily_plan_window.h"

#include "grid/surface/grid_surface.h"
#include "planning/plan_controls.h"
#include "routine/calendar_text.h"
#include "schedule/day_plan.h"
#include "shell/controls.h"
#include "shell/date_stepper.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

namespace vellora {

DailyPlanWindow::DailyPlanWindow(ApplicationState& state, QDate firstDay, QWidget* parent)
    : EditedWindow(state, parent),
      first_day_(firstDay),
      day_(makeWordStepper({u"DTP1"_qs, u"Lxq"_qs, u"计划日期"_qs}, state.clock, this)),
      grid_(named(new GridSurface(this), u"Cell1"_qs, u"每日计划表"_qs)),
      items_list_(makeNameList(u"List1"_qs, u"活动项目"_qs, this)),
      save_(makeButton(u"cmdSV"_qs, u"保存(&S)"_qs, this, [this] { SaveDayPlan(); })) {
  setWindowTitle(u"每日活动计划"_qs);
  grid_->setColumnLocked(kDayBlock, true);
  grid_->setFaintZeros(kDayLevel);
  grid_->setEmptyHint(u"还没有时间块：请先在“时 间 表”中把一天分成时间块。"_qs);
  answerGridKeys(*grid_, [this]() -> QString { return isoDate(date()) + u" 活动计划"; });
  connect(day_, &DateStepper::dateChanged, this, &DailyPlanWindow::openDay);
  placeFromList(*items_list_, [this](int position) { placeItem(position); });
  reportTrimmedPastes(*grid_);
  watch(*grid_);
  layOut();
}

void DailyPlanWindow::layOut() {
  auto* top = new QHBoxLayout;
  top->addWidget(day_);
  top->addStretch();
  auto* middle = new QHBoxLayout;
  middle->addWidget(grid_, 5);
  middle->addLayout(layItems(), 2);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addLayout(middle, 1);
  all->addWidget(statusLine());
  all->addWidget(editStatus(items_list_));
  all->addLayout(layButtons());
  resize(800, 700);
}

QVBoxLayout* DailyPlanWindow::layItems() {
  auto* column = new QVBoxLayout;
  column->addWidget(named(makePlacingHint(*items_list_), u"Label4"_qs));
  column->addWidget(items_list_, 1);
  return column;
}

QHBoxLayout* DailyPlanWindow::layButtons() {
  auto* open = makeButton(u"cmdOP"_qs, u"打开(&O)"_qs, this, [this] { openDay(); });
  auto* end = makeButton(u"CmdEND"_qs, u"关闭(&Q) "_qs, this, [this] { close(); });
  save_->setFocusPolicy(Qt::TabFocus);  // a click must not turn to a typed date before it saves
  setTabOrder(open, save_);
  setTabOrder(save_, end);
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (auto* button : {open, save_, end}) row->addWidget(button);
  return row;
}

void DailyPlanWindow::onLoad() {
  const QSignalBlocker untilActivated(day_);
  setDate(first_day_);
}

void DailyPlanWindow::setDate(QDate date) {
  day_->setDate(date);
}

QDate DailyPlanWindow::date() const {
  return day_->date();
}

void DailyPlanWindow::onActivate() {
  unsetCursor();
  setUpDayRows(grid_->sheet());
  grid_->Redraw();
  has_rows_ = false;
  readAgain();
}

void DailyPlanWindow::setTypable(bool on) {
  grid_->setEditable(on);
  save_->setEnabled(on);
}

void DailyPlanWindow::finishTyping() {
  vellora::finishTyping(*grid_);
}

// Blocks and items stay as they were read once.
void DailyPlanWindow::readAgain() {
  if (has_rows_) return openDay();
  read([this] {
    LoadBlockRows();
    loadItems();
    has_rows_ = true;
    turnTo(date());
    LoadDayPlan();
  });
}

void DailyPlanWindow::LoadBlockRows() {
  layOutBlockRows(grid_->sheet(), TimeBlockList(state().Db));
  grid_->Redraw();
  grid_->SetCurrentCell(kDayBlock, 1);
  grid_->SetCurrentCell(kDayBlock, 0);
}

void DailyPlanWindow::loadItems() {
  items_ = readOpenItems(state().Db);
  items_list_->clear();
  for (const OpenItem& item : items_) items_list_->addItem(item.name);
  items_list_->setCurrentRow(0);
}

// Until it has been read the day is empty: another date's rows must not overwrite its plan.
void DailyPlanWindow::turnTo(QDate day) {
  shown_day_ = day;
  setWindowTitle(dayPlanCaption(day));
  showDayPlan(grid_->sheet(), day, {}, {});
  grid_->clearUndo();
  grid_->Redraw();
  forget();
}

void DailyPlanWindow::LoadDayPlan() {
  saved_ = SavedEntries(state().Db, shown_day_);
  showDayPlan(grid_->sheet(), shown_day_, saved_, items_);
  grid_->clearUndo();
  grid_->Redraw();
}

void DailyPlanWindow::openDay() {
  if (!has_rows_) return readAgain();
  finishTyping();
  const bool wasChanged = isRead() && isChanged();
  const QDate day = shown_day_;
  const Sheet rows = grid_->sheet();
  if (day != date()) turnTo(date());
  const bool isOpened = read([this] { LoadDayPlan(); });
  if (wasChanged && (isOpened || day != shown_day_)) {
    keepDiscarded([this, day, rows] { return bringBack(day, rows); });
  }
}

bool DailyPlanWindow::bringBack(QDate day, const Sheet& rows) {
  if (day == date()) {
    openDay();
  } else {
    setDate(day);
  }
  if (!isRead() || shown_day_ != day) return false;
  {
    const UndoStep step(*grid_, u"找回"_qs);
    grid_->sheet() = rows;
  }
  grid_->Redraw();
  return true;
}

void DailyPlanWindow::placeItem(int position) {
  finishTyping();
  const int row = grid_->CurrentRow();
  if (!isRead() || position < 0 || position >= items_.size() || row < 0) return;
  {
    const UndoStep step(*grid_, u"安排活动"_qs);
    placeDayActivity(grid_->sheet(), row, items_[position]);
  }
  grid_->Redraw();
  grid_->SetCurrentCell(kDayRequirement, row);
  grid_->Focus();
}

bool DailyPlanWindow::SaveDayPlan() {
  finishTyping();
  DaySaveOutcome outcome;
  if (!saveAsking([&](bool overwrite) {
        outcome = writeDayPlan(state().Db, grid_->sheet(), shown_day_, saved_, overwrite);
      })) {
    return false;
  }
  if (outcome.saved) showSaved(*outcome.saved);
  updateChanges();
  prompts().warn(this, outcome.failure.isEmpty() ? u"保存完毕!"_qs : outcome.failure);
  if (outcome.failure.isEmpty()) day_->finishTyping();
  return outcome.failure.isEmpty();
}

// Another program may have changed rows that nobody touched here.
void DailyPlanWindow::showSaved(const SavedEntries& now) {
  {
    const UndoStep step(*grid_, u"刷新"_qs);
    if (refreshDayPlan(grid_->sheet(), shown_day_, saved_, now, items_)) grid_->Redraw();
  }
  saved_ = now;
}

Changes DailyPlanWindow::changes() {
  return dayChanges(grid_->sheet(), shown_day_, saved_);
}

}  // namespace vellora
