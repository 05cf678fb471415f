#include "board/plan_commands.h"

#include "board/plan_dialogs.h"
#include "grid/surface/grid_surface.h"
#include "routine/calendar_text.h"
#include "routine/text.h"
#include "schedule/items.h"
#include "schedule/time_blocks.h"
#include "shell/application_state.h"
#include "shell/line_icon.h"
#include "shell/work_dialog.h"
#include "store/moment.h"
#include "store/store_error.h"
#include "store/undo_log.h"

#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

namespace vellora {

PlanCommands::PlanCommands(const Board& board) : QObject(board.window), board_(board) {
  addCellCommands();
  addWeekCommands();
  connect(&board_.grid, &GridSurface::GridKeyDown, this, [this](QKeyEvent* event) {
    const bool isTyped = !event->text().isEmpty() && event->text().at(0).isLetterOrNumber() &&
                         !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (!isTyped || !isFree()) return;
    event->accept();
    arrangeFrom(event->text());
  });
}

void PlanCommands::add(const QString& name, const QString& icon, const QString& text,
                       const QKeySequence& key, Act act, bool (PlanCommands::*isPossible)() const,
                       bool endsGroup) {
  auto* action = new QAction(lineIcon(icon), text, this);
  action->setObjectName(name);
  action->setShortcut(key);
  const bool isOfTheWindow = name == u"Find" || name == u"Undo" || name == u"Redo";
  QWidget* where = isOfTheWindow ? board_.window : static_cast<QWidget*>(&board_.grid);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(action, &QAction::triggered, this, [this, act, isPossible] {
    if ((this->*isPossible)()) (this->*act)();
  });
  where->addAction(action);
  entries_.push_back({action, isPossible, endsGroup});
}

void PlanCommands::addCellCommands() {
  using C = PlanCommands;
  add(u"EditTexts"_qs, u"edit"_qs, u"修改要求和等级…"_qs, Qt::Key_F2, &C::editTexts, &C::isPlanned);
  add(u"MoveTo"_qs, u"move"_qs, u"移到…"_qs, {}, &C::moveTo, &C::isPlanned);
  add(u"Arrange"_qs, u"add"_qs, u"安排活动…"_qs, Qt::Key_Insert, &C::arrange, &C::isFree);
  add(u"Cut"_qs, u"cut"_qs, u"剪切"_qs, QKeySequence::Cut, &C::cut, &C::hasPlans);
  add(u"Copy"_qs, u"copy"_qs, u"复制"_qs, QKeySequence::Copy, &C::copy, &C::hasPlans);
  add(u"Paste"_qs, u"paste"_qs, u"粘贴"_qs, QKeySequence::Paste, &C::paste, &C::canPaste);
  add(u"Cancel"_qs, u"cancel"_qs, u"取消这一次"_qs, Qt::Key_Delete, &C::cancel, &C::hasPlans);
  add(u"CancelFromHereOn"_qs, u"cancel-on"_qs, u"取消以后的这一节…"_qs, {}, &C::cancelFromHereOn,
      &C::isPlanned);
  add(u"OpenPlan"_qs, u"activity"_qs, u"打开项目计划"_qs, {}, &C::openPlan, &C::isPlanned, true);
  add(u"OpenDay"_qs, u"day"_qs, u"打开每日计划"_qs, {}, &C::openDay, &C::isDay);
  add(u"OpenMemo"_qs, u"memo"_qs, u"每日备忘"_qs, {}, &C::openMemo, &C::isDay);
  add(u"CopyDay"_qs, u"copy"_qs, u"复制这一天到…"_qs, {}, &C::copyDay, &C::isDay);
  add(u"ClearDay"_qs, u"clear"_qs, u"清空这一天"_qs, {}, &C::clearDay, &C::isDay, true);
}

void PlanCommands::addWeekCommands() {
  using C = PlanCommands;
  add(u"CopyWeek"_qs, u"copy-week"_qs, u"复制本周…"_qs, {}, &C::copyWeek, &C::isWeek);
  add(u"CopyWeekTo"_qs, u"copy-to"_qs, u"复制本周到…"_qs, {}, &C::copyWeekTo, &C::isWeek);
  add(u"ClearWeek"_qs, u"clear"_qs, u"清空本周"_qs, {}, &C::clearWeek, &C::isWeek);
  add(u"Postpone"_qs, u"postpone"_qs, u"本周起顺延一周"_qs, {}, &C::postpone, &C::isWeek, true);
  add(u"ExportCalendar"_qs, u"export"_qs, u"导出日历…"_qs, {}, &C::exportCalendar, &C::isWeek);
  add(u"ImportCalendar"_qs, u"import"_qs, u"导入日历…"_qs, {}, &C::importCalendar, &C::isWeek,
      true);
  add(u"Find"_qs, u"find"_qs, u"查找…"_qs, QKeySequence::Find, &C::find, &C::isWeek);
  add(u"Undo"_qs, u"undo"_qs, u"撤消"_qs, QKeySequence::Undo, &C::undo, &C::canUndo);
  add(u"Redo"_qs, u"redo"_qs, u"重做"_qs, Qt::CTRL | Qt::Key_Y, &C::redo, &C::canRedo);
}

void PlanCommands::fill(QMenu& menu) {
  UndoLog& log = store().undoLog();
  for (const Entry& entry : entries_) {
    const bool isPossible = (this->*entry.isPossible)();
    if (entry.action->objectName() == u"Undo") {
      entry.action->setText(u"撤消 "_qs + log.undoName().value_or(QString()));
    }
    if (entry.action->objectName() == u"Redo") {
      entry.action->setText(u"重做 "_qs + log.redoName().value_or(QString()));
    }
    if (isPossible) menu.addAction(entry.action);
    if (entry.endsGroup && !menu.isEmpty()) menu.addSeparator();
  }
}

std::optional<PlanPlace> PlanCommands::placeAt(int col, int row) const {
  const auto day = readDate(board_.grid.CellTag(col, 0));
  if (col <= 0 || row <= 0 || !day) return {};
  return PlanPlace(*day, board_.grid.CellTag(0, row));
}

std::optional<PlannedBlock> PlanCommands::blockAt(CellPlace cell) const {
  const auto place = placeAt(cell.col, cell.row);
  return place ? plannedBlock(store(), *place) : std::nullopt;
}

QString PlanCommands::shownActivity(CellPlace cell) const {
  return board_.grid.CellTag(cell.col, cell.row);
}

ScheduleStore& PlanCommands::store() const {
  return board_.state.Db;
}

std::optional<PlanPlace> PlanCommands::current() const {
  const CellPlace cell = board_.grid.currentPlace();
  return placeAt(cell.col, cell.row);
}

QDate PlanCommands::currentDay() const {
  const CellPlace cell = board_.grid.currentPlace();
  return cell.col > 0 ? readDate(board_.grid.CellTag(cell.col, 0)).value_or(QDate()) : QDate();
}

bool PlanCommands::isPlanned() const {
  const CellPlace cell = board_.grid.currentPlace();
  return current() && !board_.grid.CellTag(cell.col, cell.row).isEmpty();
}

bool PlanCommands::isFree() const {
  return current() && !isPlanned();
}

bool PlanCommands::isDay() const {
  return board_.grid.currentPlace().row == 0 && currentDay().isValid();
}

bool PlanCommands::hasPlans() const {
  const CellRange cells = board_.grid.selectedCells();
  for (int row = qMax(cells.row1, 1); row <= cells.row2; ++row) {
    for (int col = qMax(cells.col1, 1); col <= cells.col2; ++col) {
      if (!board_.grid.CellTag(col, row).isEmpty()) return true;
    }
  }
  return false;
}

bool PlanCommands::canPaste() const {
  return current() && !picked_.empty();
}

bool PlanCommands::canUndo() const {
  return store().undoLog().undoName().has_value();
}

bool PlanCommands::canRedo() const {
  return store().undoLog().redoName().has_value();
}

// As stored, which may be more than the board shows.
std::vector<PlannedBlock> PlanCommands::selectedBlocks() const {
  const CellRange cells = board_.grid.selectedCells();
  std::vector<PlannedBlock> blocks;
  for (int row = qMax(cells.row1, 1); row <= cells.row2; ++row) {
    for (int col = qMax(cells.col1, 1); col <= cells.col2; ++col) {
      const auto place = placeAt(col, row);
      if (auto block = place ? plannedBlock(store(), *place) : std::nullopt) {
        blocks.push_back(*std::move(block));
      }
    }
  }
  return blocks;
}

QString PlanCommands::described(const PlannedBlock& block) const {
  return quoted(block.entries.front().activity);
}

bool PlanCommands::guarded(const std::function<void()>& change) const {
  try {
    change();
    return true;
  } catch (const StoreError& error) {
    board_.state.prompts.warn(board_.window, error.description());
  } catch (const WorkCancelled&) {
    // as the user wished; nothing was changed
  }
  return false;
}

void PlanCommands::editTexts() {
  guarded([this] {
    auto block = plannedBlock(store(), *current());
    if (!block) return board_.showSaved({});
    const auto texts = askPlanTexts(board_.window, block->entries.front());
    if (!texts || *texts == block->entries.front()) return;
    const auto now = plannedBlock(store(), block->place);
    if (!now || now->entries != block->entries) {
      throw StoreError(StoreFault::RowChanged, described(*block) + u"后来又有改动，没有修改。"_qs);
    }
    block->entries.front() = *texts;
    carryOut(u"修改"_qs + described(*block), {{block->place, block->place, block->entries}},
             u"已修改"_qs + described(*block));
  });
}

void PlanCommands::moveTo() {
  guarded([this] {
    const auto block = plannedBlock(store(), *current());
    if (!block) return board_.showSaved({});
    const TimeBlockList blocks(store());
    const auto to = askPlace(board_.window, board_.state.clock, blocks, block->place);
    if (!to || *to == block->place) return;
    put(*block, *to, false);
  });
}

void PlanCommands::put(const PlannedBlock& block, const PlanPlace& to, bool copies) {
  const TimeBlockList blocks(store());
  const QString from = placeText(block.place, blocks, firstDay());
  const QString verb = copies ? u"复制"_qs : u"移"_qs;
  carryOut(
      (copies ? u"复制"_qs : u"移动"_qs) + described(block),
      {{copies ? std::nullopt : std::optional(block.place), to, block.entries}},
      u"%1已从 %2 %3到 %4"_qs.arg(described(block), from, verb, placeText(to, blocks, firstDay())));
}

void PlanCommands::cut() {
  pick(true);
}

void PlanCommands::copy() {
  pick(false);
}

// What is cut stays where it is until it is pasted.
void PlanCommands::pick(bool isCut) {
  guarded([&] {
    picked_ = selectedBlocks();
    is_cut_ = isCut;
    board_.grid.copy();
    const CellRange cells = board_.grid.selectedCells();
    picked_at_ = placeAt(qMax(cells.col1, 1), qMax(cells.row1, 1)).value_or(PlanPlace());
  });
}

// With the shape in which they stood: days apart, and blocks apart in the board's order.
void PlanCommands::paste() {
  guarded([this] {
    const GridSurface& grid = board_.grid;
    const auto rowOf = [&grid](const QString& code) {
      int row = 1;
      while (row < grid.Rows() && grid.CellTag(0, row) != code) ++row;
      return row;
    };
    const PlanPlace at = *current();
    const qint64 days = picked_at_.first.daysTo(at.first);
    const int rows = rowOf(at.second) - rowOf(picked_at_.second);
    PlanMoves moves;
    for (const PlannedBlock& block : picked_) {
      const int row = rowOf(block.place.second) + rows;
      if (row < 1 || row >= grid.Rows()) continue;
      const PlanPlace to(block.place.first.addDays(days), grid.CellTag(0, row));
      if (to == block.place) continue;
      moves.push_back({is_cut_ ? std::optional(block.place) : std::nullopt, to, block.entries});
    }
    const QString what =
        picked_.size() == 1 ? described(picked_.front()) : u" %1 项安排"_qs.arg(picked_.size());
    carryOut((is_cut_ ? u"移动"_qs : u"复制"_qs) + what, moves,
             (is_cut_ ? u"已移动"_qs : u"已复制"_qs) + what);
    if (is_cut_) picked_.clear();
  });
}

void PlanCommands::cancel() {
  guarded([this] {
    const auto blocks = selectedBlocks();
    if (blocks.empty()) return board_.showSaved({});
    const QString what =
        blocks.size() == 1 ? described(blocks.front()) : u" %1 项安排"_qs.arg(blocks.size());
    carryOut(u"取消"_qs + what, cancelled(blocks), u"已取消"_qs + what + u"，按 Ctrl+Z 可以撤消");
  });
}

void PlanCommands::cancelFromHereOn() {
  guarded([this] {
    const auto block = plannedBlock(store(), *current());
    if (!block) return board_.showSaved({});
    const auto all = sameFromHereOn(store(), *block);
    const TimeBlockList blocks(store());
    const QString question = u"从 %1 起，每个%2的%3一共有 %4 次。要全部取消吗？"_qs.arg(
        isoDate(block->place.first), placeText(block->place, blocks, block->place.first),
        described(*block), QString::number(all.size()));
    if (!board_.state.prompts.ask(board_.window, question)) return;
    carryOut(u"取消以后的"_qs + described(*block), cancelled(all),
             u"已取消 %1 次%2"_qs.arg(all.size()).arg(described(*block)));
  });
}

void PlanCommands::openPlan() {
  const CellPlace cell = board_.grid.currentPlace();
  board_.openActivity(board_.grid.CellTag(cell.col, cell.row));
}

void PlanCommands::exportCalendar() {
  const CellPlace cell = board_.grid.currentPlace();
  board_.exportCalendar(isPlanned() ? board_.grid.CellTag(cell.col, cell.row) : QString());
}

void PlanCommands::arrangeFrom(const QString& typed) {
  guarded([&] {
    const PlanPlace place = *current();
    const auto activity = askActivity(board_.window, readOpenItems(store()), typed);
    if (!activity) return;
    const PlannedBlock block{place, {{*activity, QString(), u"0"_qs}}};
    carryOut(u"安排"_qs + described(block), {{{}, place, block.entries}},
             u"已安排%1，按 F2 填写要求和等级"_qs.arg(described(block)));
  });
}

void PlanCommands::undo() {
  UndoLog& log = store().undoLog();
  const QString name = log.undoName().value_or(QString());
  if (guarded([&] { log.undo(); })) board_.rebuild(u"已撤消：%1"_qs.arg(name));
}

void PlanCommands::redo() {
  UndoLog& log = store().undoLog();
  const QString name = log.redoName().value_or(QString());
  if (guarded([&] { log.redo(); })) board_.rebuild(u"已重做：%1"_qs.arg(name));
}

std::optional<std::set<PlanPlace>> PlanCommands::placesToKeep(const PlanMoves& moves,
                                                              const QString& what,
                                                              bool confirms) const {
  enum Answer { Replace, Keep, GiveUp };
  const auto conflicts = conflictsOf(store(), moves);
  const TimeBlockList blocks(store());
  if (conflicts.size() > 1 || confirms) {
    return askAboutConflicts(board_.window, what, conflicts, blocks);
  }
  if (conflicts.empty()) return std::set<PlanPlace>();
  const PlanConflict& conflict = conflicts.front();
  const int answer = board_.state.prompts.choose(
      board_.window,
      u"%1 已经安排了%2。"_qs.arg(placeText(conflict.place, blocks, board_.firstDay()),
                                  quoted(conflict.holder)),
      {u"替换"_qs, u"保留原有"_qs, u"取消"_qs}, Keep);
  if (answer == GiveUp) return {};
  return answer == Keep ? std::set{conflict.place} : std::set<PlanPlace>();
}

void PlanCommands::carryOut(const QString& name, const PlanMoves& moves, const QString& message,
                            bool confirms) {
  const auto kept = placesToKeep(moves, message, confirms);
  if (!kept) return;
  store().undoLog().setName(name);
  int done = 0;
  runWithDialog(board_.window, [&](const WorkProgress& progress) {
    done = vellora::carryOut(store(), moves, *kept, progress);
  });
  const QString count = u"%1：%2 项"_qs.arg(name).arg(done);
  const QString rest = kept->empty() ? QString() : u"，%1 处保留原有"_qs.arg(kept->size());
  board_.showSaved((confirms || !kept->empty() ? count : message) + rest);
}

}  // namespace vellora
