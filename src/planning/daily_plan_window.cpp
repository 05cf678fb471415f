#include "planning/daily_plan_window.h"

#include "grid/surface/grid_surface.h"
#include "planning/day_plan.h"
#include "planning/plan_controls.h"
#include "planning/undo_step.h"
#include "planning/unsaved_watch.h"
#include "routine/calendar_text.h"
#include "shell/date_stepper.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

namespace vellora {
DailyPlanWindow::DailyPlanWindow(ApplicationState& state, QDate firstDay, QWidget* parent)
    : PlannerWindow(state, parent),
      first_day_(firstDay),
      day_(makeWordStepper({u"DTP1"_qs, u"Lxq"_qs, u"计划日期"_qs}, state.clock, this)),
      grid_(new GridSurface(this)),
      items_list_(makeNameList(u"List1"_qs, u"活动项目"_qs, this)),
      unsaved_(new QLabel(this)),
      watch_(new UnsavedWatch(*grid_, *unsaved_, [this](const Sheet& sheet, int row) {
        return isUnsavedDayRow(sheet, row, date(), saved_);
      })) {
  setWindowTitle(u"每日活动计划"_qs);
  grid_->setObjectName(u"Cell1"_qs);
  grid_->setAccessibleName(u"每日计划表"_qs);
  grid_->setEditable(true);
  answerGridKeys(*grid_, [this]() -> QString { return isoDate(date()) + u" 活动计划"; });
  connect(day_, &DateStepper::dateChanged, this, &DailyPlanWindow::openDay);
  placeFromList(*items_list_, [this](int position) { placeItem(position); });
  tellCutPastes(*grid_);
  layOut();
}

DailyPlanWindow::~DailyPlanWindow() = default;

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
  all->addLayout(layButtons());
  resize(800, 700);
}

QVBoxLayout* DailyPlanWindow::layItems() {
  auto* hint = makePlacingHint(*items_list_, this);
  hint->setObjectName(u"Label4"_qs);
  auto* column = new QVBoxLayout;
  column->addWidget(hint);
  column->addWidget(items_list_, 1);
  return column;
}

QHBoxLayout* DailyPlanWindow::layButtons() {
  auto* open = makeButton(u"cmdOP"_qs, u"打开(&O)"_qs, this);
  auto* save = makeButton(u"cmdSV"_qs, u"保存(&S)"_qs, this);
  auto* end = makeButton(u"CmdEND"_qs, u"关闭(&Q) "_qs, this);
  save->setFocusPolicy(Qt::TabFocus);  // a click must not turn to a typed date before it saves
  connect(open, &QPushButton::clicked, this, &DailyPlanWindow::openDay);
  connect(save, &QPushButton::clicked, this, &DailyPlanWindow::SaveDayPlan);
  connect(end, &QPushButton::clicked, this, &QWidget::close);
  auto* row = new QHBoxLayout;
  row->addWidget(unsaved_, 1);
  for (auto* button : {open, save, end}) row->addWidget(button);
  return row;
}

void DailyPlanWindow::load() {
  const QSignalBlocker untilActivated(day_);
  setDate(first_day_);
}

void DailyPlanWindow::setDate(QDate date) {
  day_->setDate(date);
}

QDate DailyPlanWindow::date() const {
  return day_->date();
}

void DailyPlanWindow::activate() {
  unsetCursor();
  try {
    setUpDayRows(grid_->sheet());
    LoadBlockRows();
    loadItems();
    LoadDayPlan();
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
  }
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

void DailyPlanWindow::LoadDayPlan() {
  shown_day_ = QDate();
  setWindowTitle(dayPlanCaption(date()));
  loadDayPlan(state().Db, grid_->sheet(), date(), items_);
  shown_day_ = date();
  grid_->clearUndo();
  grid_->Redraw();
  readSaved();
}

void DailyPlanWindow::openDay() {
  try {
    LoadDayPlan();
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
  }
}

void DailyPlanWindow::placeItem(int position) {
  finishTyping(*grid_);
  const int row = grid_->CurrentRow();
  if (position < 0 || position >= items_.size() || row < 0) return;
  {
    const UndoStep step(*grid_, u"安排活动"_qs);
    placeDayActivity(grid_->sheet(), row, items_[position]);
  }
  grid_->Redraw();
  grid_->SetCurrentCell(kDayRequirement, row);
  grid_->Focus();
}

// Another date's rows in the grid, after a failed reading, must not overwrite this date's plan.
void DailyPlanWindow::SaveDayPlan() {
  if (shown_day_ != date()) {
    prompts().warn(this, u"%1的计划没有读出来，不能保存，请先打开。"_qs.arg(longDate(date())));
    return;
  }
  finishTyping(*grid_);
  const QString failure = saveDayPlan(state().Db, grid_->sheet(), date());
  try {
    readSaved();
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
  }
  prompts().warn(this, failure.isEmpty() ? u"保存完毕!"_qs : failure);
  if (failure.isEmpty()) day_->finishTyping();
}

bool DailyPlanWindow::hasUnsavedTyping() const {
  return watch_->hasUnsaved();
}

void DailyPlanWindow::readSaved() {
  saved_ = SavedEntries(state().Db, date());
  watch_->lookAgain();
}

}  // namespace vellora
