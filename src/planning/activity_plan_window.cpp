#include "planning/activity_plan_window.h"

#include "grid/surface/grid_surface.h"
#include "planning/count_field.h"
#include "routine/calendar_text.h"
#include "schedule/day_plan.h"
#include "schedule/items.h"
#include "schedule/plan_entries.h"
#include "schedule/plan_repetition.h"
#include "schedule/plan_rows.h"
#include "schedule/plan_saving.h"
#include "shell/date_stepper.h"
#include "shell/work_dialog.h"
#include "store/statements.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace vellora {
namespace {

const QString& takenText() {
  static const QString kText = u" 当前时间已经排为"_qs;
  return kText;
}

}  // namespace

ActivityPlanWindow::ActivityPlanWindow(ApplicationState& state, QWidget* parent)
    : EditedWindow(state, parent), controls_(state.clock, this) {
  controls_.foot->addWidget(statusLine());
  controls_.foot->addWidget(editStatus(controls_.byWeek));
  setObjectName(u"FormXMJH"_qs);
  setWindowTitle(u"项目活动计划"_qs);
  answerGridKeys(*controls_.grid, [this]() -> QString { return chosenActivity() + u" 活动计划"; });
  connectControls();
  connectGrid();
}

void ActivityPlanWindow::connectControls() {
  const auto onClick = [this](QPushButton* button, auto handler) {
    connect(button, &QPushButton::clicked, this, handler);
  };
  connect(controls_.activities, &QListWidget::currentTextChanged, this,
          &ActivityPlanWindow::choose);
  connect(controls_.activities, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* item) { chooseAgain(item->text()); });
  connect(controls_.day, &DateStepper::dateChanged, this,
          [this] { guarded([this] { showDay(); }); });
  placeFromList(*controls_.blocks, [this](int position) { PlaceBlock(position); });
  new WeekCountKeys(*controls_.weeks->box());
  onClick(controls_.byDay, [this] { Repeat(controls_.days->box()->text(), 1); });
  onClick(controls_.byWeek, [this] {
    Repeat(controls_.weeks->box()->text(), kDaysInAWeek * controls_.everyWeeks->value());
  });
  onClick(controls_.open, [this] { ListPlan(); });
  onClick(controls_.save, [this] { SavePlan(); });
  onClick(controls_.remove, [this] { DeletePlan(); });
  onClick(controls_.close, [this] { close(); });
}

void ActivityPlanWindow::connectGrid() {
  auto* grid = controls_.grid;
  connect(grid, &GridSurface::CellEntered, this, [grid](int, int row) {
    if (keepSparePlanRow(grid->sheet(), row)) grid->Redraw();
  });
  connect(grid, &GridSurface::CellEditStart, this, [this, grid](int col, int row) {
    proposePlanDate(grid->sheet(), col, row, controls_.day->date());
  });
  grid->setEntryRule([this](int col, int, const QString& text) { return understood(col, text); });
  connect(grid, &GridSurface::EntriesRefused, this, [this](int, const QString& text) {
    prompts().warn(this,
                   u"“%1”不是时间块，没有填写。请填时间块的编号、名称或起止时间。"_qs.arg(text));
  });
  grid->setFaintZeros(kPlanLevel);
  grid->setEmptyHint(u"还没有计划：选好日期，双击右边的时间块，就安排了一次。"_qs);
  connect(controls_.chosen, &QLineEdit::textChanged, this, &ActivityPlanWindow::updateChanges);
  reportTrimmedPastes(*grid);
  watch(*grid);
  connect(grid, &GridSurface::RowDuplicate, this, &ActivityPlanWindow::duplicateRow);
}

void ActivityPlanWindow::onLoad() {
  setUpPlanRows(controls_.grid->sheet());
  controls_.grid->Redraw();
  loadLists();
}

void ActivityPlanWindow::setTypable(bool on) {
  controls_.grid->setEditable(on);
  for (auto* button : {controls_.save, controls_.byDay, controls_.byWeek}) button->setEnabled(on);
}

void ActivityPlanWindow::finishTyping() {
  vellora::finishTyping(*controls_.grid);
}

void ActivityPlanWindow::readAgain() {
  has_lists_ ? ListPlan() : loadLists();
}

void ActivityPlanWindow::loadLists() {
  has_lists_ = read([this] { readLists(); });
  if (has_lists_ && controls_.activities->count() > 0) ListPlan();
}

// A list that cannot be read stays empty, so that the window opens with what there is. A busy
// schedule has been waited for once, and would be for the next list.
void ActivityPlanWindow::readLists() {
  try {
    loadBlocks();
  } catch (const StoreError& error) {
    if (error.fault() != StoreFault::Busy) loadActivities();
    throw;
  }
  loadActivities();
}

void ActivityPlanWindow::loadBlocks() {
  blocks_ = TimeBlockList(state().Db);
  controls_.blocks->clear();
  for (const TimeBlock& block : blocks_) controls_.blocks->addItem(block.line);
  controls_.blocks->setCurrentRow(0);
}

void ActivityPlanWindow::loadActivities() {
  const auto items = readOpenItems(state().Db);
  const QSignalBlocker listedLater(controls_.activities);
  controls_.activities->clear();
  for (const OpenItem& item : items) controls_.activities->addItem(item.name);
  controls_.activities->setCurrentRow(0);
  if (!items.isEmpty()) controls_.chosen->setText(items.front().name);
}

// A text in the time column stands for a block, whose code the row keeps.
std::optional<CellEntry> ActivityPlanWindow::understood(int col, const QString& text) const {
  if (col != kPlanTime) return CellEntry{text, {}};
  const TimeBlock* block = blocks_.meant(text);
  return block ? std::optional(CellEntry{block->cell, block->code}) : std::nullopt;
}

void ActivityPlanWindow::onActivate() {
  unsetCursor();
  guarded([this] {
    const QSignalBlocker once(controls_.day);
    controls_.day->setDate(state().clock.today());
    showDay();
  });
}

void ActivityPlanWindow::showDay() {
  controls_.summary->setPlainText(daySummary(state().Db, controls_.day->date()));
}

void ActivityPlanWindow::chooseActivity(const QString& name) {
  for (int line = 0; line < controls_.activities->count(); ++line) {
    if (controls_.activities->item(line)->text() != name) continue;
    controls_.activities->setCurrentRow(line);
    return;
  }
}

QString ActivityPlanWindow::chosenActivity() const {
  return controls_.chosen->text();
}

void ActivityPlanWindow::choose(const QString& name) {
  controls_.chosen->setText(name);
  ListPlan();
}

// A click on the activity that is chosen already lists it anew. The click that chose it has listed
// it, so there is only something to do where the grid holds something else.
void ActivityPlanWindow::chooseAgain(const QString& name) {
  if (name != chosenActivity() || name != listed_ || !isRead() || isChanged()) choose(name);
}

void ActivityPlanWindow::ListPlan() {
  if (!has_lists_) return loadLists();
  finishTyping();
  const bool wasChanged = isRead() && isChanged();
  const QString activity = listed_;
  const Sheet rows = controls_.grid->sheet();
  if (activity != chosenActivity() || !isRead()) turnTo(chosenActivity());
  QStringList missing;
  const bool isListed = read([&] { missing = readPlan(); });
  if (wasChanged && (isListed || activity != listed_)) {
    keepDiscarded([this, activity, rows] { return bringBack(activity, rows); });
  }
  if (!missing.isEmpty()) prompts().warn(this, missingBlocksText(missing));
}

// Until its plan has been read the grid is empty: what was never shown must not be replaced.
void ActivityPlanWindow::turnTo(const QString& activity) {
  listed_ = activity;
  showTitle(u"项目活动计划  "_qs + activity);
  auto* grid = controls_.grid;
  grid->sheet().SetRows(0);
  grid->sheet().SetRows(kSparePlanRows);
  grid->clearUndo();
  grid->Redraw();
  forget();
}

QStringList ActivityPlanWindow::readPlan() {
  auto* grid = controls_.grid;
  const ScheduleStore::ReadTransaction oneView(state().Db);
  QStringList missing = listEntries(state().Db, grid->sheet(), blocks_, listed_);
  saved_ = SavedEntries(state().Db, listed_);
  taken_.clear();
  grid->clearUndo();
  grid->Redraw();
  grid->SetCurrentCell(kPlanDate, 0);
  return missing;
}

bool ActivityPlanWindow::bringBack(const QString& activity, const Sheet& rows) {
  {
    const QSignalBlocker listedBelow(controls_.activities);
    chooseActivity(activity);
  }
  choose(activity);
  if (!isRead()) return false;
  {
    const UndoStep step(*controls_.grid, u"找回"_qs);
    controls_.grid->sheet() = rows;
  }
  controls_.grid->Redraw();
  return true;
}

void ActivityPlanWindow::PlaceBlock(int position) {
  const TimeBlock* block = blocks_.at(position);
  auto* grid = controls_.grid;
  finishTyping();
  const int row = grid->CurrentRow();
  if (!isRead() || !block || row < 0) return;
  guarded([&] {
    const QDate date = controls_.day->date();
    if (const auto holder = entryOfBlock(state().Db, date, block->code)) {
      prompts().warn(this, takenText() + holder->activity);
      return;
    }
    {
      const UndoStep step(*grid, u"安排时间"_qs);
      placePlanRow(grid->sheet(), row, date, *block, chosenActivity());
    }
    grid->Redraw();
    grid->SetCurrentCell(kPlanRequirement, row);
    grid->Focus();
  });
}

// Saving deletes what the grid does not show.
bool ActivityPlanWindow::SavePlan() {
  finishTyping();
  if (chosenActivity() != listed_) {
    prompts().warn(this,
                   u"项目“%1”的计划没有读出来，不能保存，请先打开。"_qs.arg(chosenActivity()));
    return false;
  }
  PlanSaveOutcome outcome;
  try {
    if (!saveAsking([&](bool overwrite) {
          WorkDialog dialog(this);
          outcome = writePlan(state().Db, controls_.grid->sheet(), listed_,
                              overwrite ? nullptr : &saved_, dialog.progress());
        })) {
      return false;
    }
  } catch (const WorkCancelled&) {
    return false;
  }
  if (outcome.saved) saved_ = *outcome.saved;
  taken_ = outcome.taken;
  updateChanges();
  showOutcome(outcome);
  return outcome.failure.isEmpty();
}

void ActivityPlanWindow::showOutcome(const PlanSaveOutcome& outcome) {
  if (outcome.saved) guarded([this] { showDay(); });
  for (const TakenBlock& taken : outcome.taken) {
    prompts().warn(this, taken.date + takenText() + taken.holder);
  }
  prompts().warn(this, outcome.failure.isEmpty() ? u"保存完毕!"_qs : outcome.failure);
}

void ActivityPlanWindow::DeletePlan() {
  const QString name = chosenActivity();
  if (!prompts().ask(this, u"请认是否删除项目 "_qs + name + u" 的全部计划 ?")) return;
  guarded([&] {
    state().Db.execute(statements::deletePlansOfActivity(name));
    ListPlan();
    showDay();
  });
}

void ActivityPlanWindow::Repeat(const QString& count, int stepDays) {
  auto* grid = controls_.grid;
  finishTyping();
  guarded([&] {
    std::optional<int> below;
    {
      const UndoStep step(*grid, u"追加计划"_qs);
      WorkDialog dialog(this);
      below = repeatPlanRow(state().Db, grid->sheet(), grid->CurrentRow(),
                            {repetitionCount(count), stepDays}, dialog.progress());
    }
    grid->Redraw();
    if (below) grid->SetCurrentCell(kPlanDate, *below);
  });
}

void ActivityPlanWindow::duplicateRow(int row) {
  auto* grid = controls_.grid;
  finishTyping();
  {
    const UndoStep step(*grid, u"复制一行"_qs);
    duplicatePlanRow(grid->sheet(), row);
  }
  grid->Redraw();
}

Changes ActivityPlanWindow::changes() {
  Changes changes = planChanges(controls_.grid->sheet(), listed_, saved_, taken_);
  if (chosenActivity() != listed_) {
    changes.note = u"项目“%1”还没有打开，打开后才能保存"_qs.arg(chosenActivity());
  }
  return changes;
}

void ActivityPlanWindow::guarded(const std::function<void()>& step) {
  try {
    step();
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
  } catch (const WorkCancelled&) {
    return;  // as the user wished
  }
}

}  // namespace vellora
