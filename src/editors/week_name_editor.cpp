#include "editors/week_name_editor.h"

#include "editors/week_bar.h"
#include "grid/surface/grid_surface.h"
#include "schedule/week_names.h"

namespace vellora {
namespace {

TableEditor::Kind weekNameKind() {
  return {u"WeekNameEditor"_qs, u"作息时间划分"_qs, u"每周命名表"_qs,
          u"每周命名"_qs,       QSize(540, 620),    setUpWeekNames,
          LoadWeekNames,        SaveWeekNames,      weekNameChanges};
}

}  // namespace

WeekNameEditor::WeekNameEditor(ApplicationState& state, QWidget* parent)
    : WeekNameEditor(state, new WeekBar(state.clock), parent) {}

WeekNameEditor::WeekNameEditor(ApplicationState& state, WeekBar* bar, QWidget* parent)
    : TableEditor(state, weekNameKind(), bar, nullptr, parent), bar_(bar) {
  connect(bar, &WeekBar::addWeek, this, &WeekNameEditor::addPickedWeek);
  connect(bar, &WeekBar::addFollowingWeeks, this, &WeekNameEditor::addTenWeeks);
  grid().setGrowsOnPaste(true);
  connect(&grid(), &GridSurface::CellEntered, this, &WeekNameEditor::carryName);
}

void WeekNameEditor::onActivate() {
  bar_->setDate(state().clock.today());
  TableEditor::onActivate();
}

void WeekNameEditor::setTypable(bool on) {
  TableEditor::setTypable(on);
  bar_->setEnabled(on);
}

void WeekNameEditor::addPickedWeek() {
  change(u"添加本日"_qs, [this] {
    const int row = addWeek(grid().sheet(), grid().CurrentRow(), bar_->date());
    grid().Redraw();
    moveTo(kWeekNameCol, row);
  });
  grid().Focus();
}

void WeekNameEditor::addTenWeeks() {
  change(u"连续添加"_qs, [this] {
    const int row = grid().CurrentRow();
    const int last = addFollowingWeeks(grid().sheet(), row);
    if (last == row) return;
    grid().Redraw();
    moveTo(kWeekNameCol, last);
  });
  grid().Focus();
}

void WeekNameEditor::carryName(int leftRow, int enteredRow) {
  const quint64 before = grid().sheet().revision();
  carryNameDown(grid().sheet(), leftRow, enteredRow);
  if (grid().sheet().revision() != before) grid().Redraw();
}

}  // namespace vellora
