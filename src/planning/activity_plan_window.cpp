#include "planning/activity_plan_window.h"

#include "grid/surface/grid_surface.h"
#include "planning/count_field.h"
#include "planning/day_summary.h"
#include "planning/open_items.h"
#include "planning/plan_controls.h"
#include "planning/plan_entry.h"
#include "planning/plan_listing.h"
#include "planning/plan_repetition.h"
#include "planning/plan_rows.h"
#include "planning/plan_saving.h"
#include "planning/undo_step.h"
#include "planning/unsaved_watch.h"
#include "planning/week_count_keys.h"
#include "routine/calendar_text.h"
#include "shell/date_stepper.h"
#include "shell/work_dialog.h"
#include "store/statements.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace vellora {
namespace {

const QString& takenText() {
  static const QString kText = u" 当前时间已经排为"_qs;
  return kText;
}

}  // namespace

ActivityPlanWindow::ActivityPlanWindow(ApplicationState& state, QWidget* parent)
    : PlannerWindow(state, parent),
      controls_(state.clock, this, statusLine()),
      watch_(new UnsavedWatch(*controls_.grid, *controls_.unsaved,
                              [this](const Sheet& sheet, int row) {
                                return isUnsavedPlanRow(sheet, row, chosenActivity(), saved_);
                              })) {
  setObjectName(u"FormXMJH"_qs);
  setWindowTitle(u"项目活动计划"_qs);
  answerGridKeys(*controls_.grid, [this]() -> QString { return chosenActivity() + u" 活动计划"; });
  connectControls();
  connectGrid();
}

ActivityPlanWindow::~ActivityPlanWindow() = default;

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
  onClick(controls_.byWeek, [this] { Repeat(controls_.weeks->box()->text(), 7); });
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
  tellCutPastes(*grid);
  connect(grid, &GridSurface::RowDuplicate, this, &ActivityPlanWindow::duplicateRow);
}

void ActivityPlanWindow::load() {
  setUpPlanRows(controls_.grid->sheet());
  controls_.grid->Redraw();
  // A list that cannot be read stays empty, so that the window opens with what there is.
  for (const auto step : {&ActivityPlanWindow::loadBlocks, &ActivityPlanWindow::loadActivities}) {
    guarded([this, step] { (this->*step)(); });
  }
}

void ActivityPlanWindow::loadBlocks() {
  blocks_ = TimeBlockList(state().Db);
  controls_.blocks->clear();
  for (const TimeBlock& block : blocks_) controls_.blocks->addItem(block.line);
  controls_.blocks->setCurrentRow(0);
}

void ActivityPlanWindow::loadActivities() {
  const auto items = readOpenItems(state().Db);
  controls_.activities->clear();
  for (const OpenItem& item : items) controls_.activities->addItem(item.name);
  controls_.activities->setCurrentRow(0);
}

void ActivityPlanWindow::activate() {
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
  if (name != chosenActivity() || watch_->hasUnsaved()) choose(name);
}

void ActivityPlanWindow::ListPlan() {
  is_listed_ = false;
  guarded([this] {
    showTitle(u"项目活动计划  "_qs + chosenActivity());
    auto* grid = controls_.grid;
    const QStringList missing = listPlan(state().Db, grid->sheet(), blocks_, chosenActivity());
    is_listed_ = true;
    grid->clearUndo();
    grid->Redraw();
    grid->SetCurrentCell(kPlanDate, 0);
    readSaved();
    for (const QString& code : missing) {
      prompts().warn(this, u"时间块编号:"_qs + code + u"在时间划分中没有找到!");
    }
  });
}

void ActivityPlanWindow::PlaceBlock(int position) {
  const TimeBlock* block = blocks_.at(position);
  auto* grid = controls_.grid;
  finishTyping(*grid);
  const int row = grid->CurrentRow();
  if (!block || row < 0) return;
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

// Saving deletes what the grid does not show, which must not befall a plan that was never shown.
void ActivityPlanWindow::SavePlan() {
  if (!is_listed_) {
    prompts().warn(this,
                   u"项目“%1”的计划没有读出来，不能保存，请先打开。"_qs.arg(chosenActivity()));
    return;
  }
  finishTyping(*controls_.grid);
  PlanSaveOutcome outcome;
  try {
    WorkDialog dialog(this);
    outcome = savePlan(state().Db, controls_.grid->sheet(), chosenActivity(), dialog.progress());
  } catch (const WorkGivenUp&) {
    return;
  }
  guarded([this] {
    readSaved();
    showDay();
  });
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
  finishTyping(*grid);
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
  finishTyping(*grid);
  {
    const UndoStep step(*grid, u"复制一行"_qs);
    duplicatePlanRow(grid->sheet(), row);
  }
  grid->Redraw();
}

bool ActivityPlanWindow::hasUnsavedTyping() const {
  return watch_->hasUnsaved();
}

void ActivityPlanWindow::readSaved() {
  saved_ = SavedEntries(state().Db, chosenActivity());
  watch_->lookAgain();
}

void ActivityPlanWindow::guarded(const std::function<void()>& step) {
  try {
    step();
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
  } catch (const WorkGivenUp&) {
    return;  // as the user wished
  }
}

}  // namespace vellora
