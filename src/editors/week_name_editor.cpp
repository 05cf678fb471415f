#include "editors/week_name_editor.h"

#include "grid/surface/grid_surface.h"
#include "schedule/week_names.h"
#include "shell/controls.h"
#include "shell/date_stepper.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vellora {
namespace {

TableEditor::Kind weekNameKind() {
  return {u"WeekNameEditor"_qs,
          u"作息时间划分"_qs,
          u"每周命名表"_qs,
          u"每周命名"_qs,
          u"还没有命名：每行填写一段日期和它的名称，再按“保存”。"_qs,
          QSize(540, 620),
          setUpWeekNames,
          LoadWeekNames,
          SaveWeekNames,
          weekNameChanges};
}

}  // namespace

WeekNameEditor::WeekNameEditor(ApplicationState& state, QWidget* parent)
    : WeekNameEditor(state, new QWidget, parent) {}

WeekNameEditor::WeekNameEditor(ApplicationState& state, QWidget* bar, QWidget* parent)
    : TableEditor(state, weekNameKind(), bar, nullptr, parent),
      bar_(bar),
      days_(makeWordStepper({u"DTP1"_qs, u"Lxq"_qs, u"所选日期"_qs}, state.clock, bar)) {
  layOutBar();
  grid().setGrowsOnPaste(true);
  connect(&grid(), &GridSurface::CellEntered, this, &WeekNameEditor::carryName);
}

void WeekNameEditor::layOutBar() {
  auto* add = new QHBoxLayout;
  add->addWidget(makeButton(u"CmdBR"_qs, u"添加本日"_qs, bar_, [this] { addPickedWeek(); }));
  add->addWidget(makeButton(u"CmdLX"_qs, u"连续添加"_qs, bar_, [this] { addTenWeeks(); }));
  add->addStretch();
  auto* lines = new QVBoxLayout(bar_);
  lines->setContentsMargins({});
  lines->addWidget(days_, 0, Qt::AlignLeft);
  lines->addLayout(add);
}

void WeekNameEditor::onActivate() {
  days_->setDate(state().clock.today());
  TableEditor::onActivate();
}

void WeekNameEditor::setTypable(bool on) {
  TableEditor::setTypable(on);
  bar_->setEnabled(on);
}

void WeekNameEditor::addPickedWeek() {
  change(u"添加本日"_qs, [this] {
    const int row = addWeek(grid().sheet(), grid().CurrentRow(), days_->date());
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
