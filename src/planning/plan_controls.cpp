#include "planning/plan_controls.h"

#include "grid/surface/grid_surface.h"
#include "planning/count_field.h"
#include "shell/controls.h"
#include "shell/date_stepper.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>

namespace vellora {
namespace {

QFont listFont(const QWidget& list) {
  QFont face = list.font();
  face.setFamilies({u"宋体"_qs});
  return face;
}

using Controls = ActivityPlanControls;

// Four narrow buttons leave the room to the grid.
DateStepper* makeStepper(const Clock& clock, QWidget* window) {
  auto* stepper = new DateStepper({u"DTP1"_qs, u"Lxq"_qs, u"计划日期"_qs},
                                  {{u"Command3"_qs, u"<<"_qs, u"上一周"_qs, -7},
                                   {u"Command1"_qs, u"<"_qs, u"前一天"_qs, -1},
                                   {u"Command2"_qs, u">"_qs, u"后一天"_qs, 1},
                                   {u"Command4"_qs, u">>"_qs, u"下一周"_qs, 7}},
                                  clock, window);
  for (auto* button : stepper->findChildren<QPushButton*>()) {
    button->setMaximumWidth(button->fontMetrics().horizontalAdvance(u"<<<<<"_qs));
  }
  return stepper;
}

QPlainTextEdit* makeSummary(QWidget* window) {
  auto* summary = named(new QPlainTextEdit(window), u"Text3"_qs);
  summary->setReadOnly(true);
  summary->setTabChangesFocus(true);
  summary->setFont(listFont(*summary));
  return summary;
}

GridSurface* makeGrid(QWidget* window) {
  auto* grid = named(new GridSurface(window), u"Cell1"_qs, u"项目计划表"_qs);
  grid->setRowNumbersVisible(true);
  grid->setGrowsOnPaste(true);
  return grid;
}

CountField* makeCount(const QString& words, const QString& objectName,
                      const QString& accessibleName, const QString& count, QWidget* window) {
  auto* field = new CountField(words, objectName, accessibleName, window);
  field->box()->setText(count);
  return field;
}

QSpinBox* makeInterval(QWidget* window) {
  constexpr int kMostWeeksBetween = 52;
  auto* weeks = named(new QSpinBox(window), u"EveryWeeks"_qs, u"每隔几周"_qs);
  weeks->setRange(1, kMostWeeksBetween);
  return weeks;
}

QVBoxLayout* layActivities(const Controls& controls) {
  auto* column = new QVBoxLayout;
  column->addWidget(makeLabel(u"活动项目"_qs, controls.activities));
  column->addWidget(controls.activities, 1);
  column->addWidget(makeLabel(u"当前项目"_qs, controls.chosen));
  column->addWidget(controls.chosen);
  return column;
}

QVBoxLayout* layDay(const Controls& controls, QWidget* window) {
  auto* heading = new QHBoxLayout;
  heading->addWidget(new QLabel(u"时间"_qs, window));
  heading->addWidget(makePlacingHint(*controls.blocks));
  heading->addStretch();
  auto* column = new QVBoxLayout;
  column->addWidget(controls.day);
  column->addLayout(heading);
  column->addWidget(controls.blocks, 3);
  column->addWidget(makeLabel(u"当日已有计划"_qs, controls.summary));
  column->addWidget(controls.summary, 2);
  return column;
}

QGridLayout* layRepetition(const Controls& controls, QWidget* window) {
  auto* lines = new QGridLayout;
  lines->addWidget(new QLabel(u"以后每天同一时间与本日相同"_qs, window), 0, 0);
  lines->addWidget(controls.days, 0, 1);
  lines->addWidget(controls.byDay, 0, 3);
  lines->addWidget(new QLabel(u"以后每周同一时间与本日相同"_qs, window), 1, 0);
  lines->addWidget(controls.weeks, 1, 1);
  auto* interval = new QHBoxLayout;
  interval->addWidget(makeLabel(u"每隔"_qs, controls.everyWeeks));
  interval->addWidget(controls.everyWeeks);
  interval->addWidget(new QLabel(u"周"_qs, window));
  interval->addSpacing(8);
  lines->addLayout(interval, 1, 2);
  lines->addWidget(controls.byWeek, 1, 3);
  lines->setColumnStretch(4, 1);
  return lines;
}

QHBoxLayout* layButtons(const Controls& controls) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (auto* button : {controls.open, controls.save, controls.remove, controls.close}) {
    row->addWidget(button);
  }
  return row;
}

QVBoxLayout* layPlan(const Controls& controls, QWidget* window) {
  auto* column = new QVBoxLayout;
  column->addWidget(controls.grid, 1);
  column->addLayout(layRepetition(controls, window));
  column->addLayout(controls.foot);
  column->addLayout(layButtons(controls));
  return column;
}

}  // namespace

QListWidget* makeNameList(const QString& objectName, const QString& accessibleName,
                          QWidget* parent) {
  auto* list = named(new QListWidget(parent), objectName, accessibleName);
  list->setFont(listFont(*list));
  return list;
}

void placeFromList(QListWidget& list, const std::function<void(int position)>& place) {
  QObject::connect(&list, &QListWidget::doubleClicked, &list,
                   [place](const QModelIndex& line) { place(line.row()); });
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* enter = new QShortcut(key, &list, nullptr, nullptr, Qt::WidgetShortcut);
    QObject::connect(enter, &QShortcut::activated, &list,
                     [place, &list] { place(list.currentRow()); });
  }
}

QLabel* makePlacingHint(QListWidget& list) {
  return makeLabel(u"(双击完成操作)"_qs, &list);
}

void finishTyping(GridSurface& grid) {
  auto* editor = QApplication::focusWidget();
  if (editor && grid.viewport()->isAncestorOf(editor)) editor->clearFocus();
}

ActivityPlanControls::ActivityPlanControls(const Clock& clock, QWidget* window)
    : activities(makeNameList(u"List1"_qs, u"活动项目"_qs, window)),
      chosen(named(new QLineEdit(window), u"Text2"_qs)),
      day(makeStepper(clock, window)),
      blocks(makeNameList(u"List2"_qs, u"时间"_qs, window)),
      summary(makeSummary(window)),
      grid(makeGrid(window)),
      foot(new QVBoxLayout),
      days(makeCount(u"共       天"_qs, u"Text4"_qs, u"天数"_qs, u"60"_qs, window)),
      byDay(makeButton(u"CmdDAY"_qs, u"按天追加计划"_qs, window)),
      weeks(makeCount(u"共       周"_qs, u"Text1"_qs, u"周数"_qs, u"8"_qs, window)),
      everyWeeks(makeInterval(window)),
      byWeek(makeButton(u"CmdJH"_qs, u"按周追加计划"_qs, window)),
      open(makeButton(u"cmdOP"_qs, u"打  开(&O)"_qs, window)),
      save(makeButton(u"cmdSV"_qs, u"保  存(&S)"_qs, window)),
      remove(makeButton(u"CmdDEL"_qs, u"删  除(&D)"_qs, window)),
      close(makeButton(u"CmdEND"_qs, u"关  闭(&Q) "_qs, window)) {
  auto* all = new QHBoxLayout(window);
  all->addLayout(layActivities(*this), 2);
  all->addSpacing(all->spacing());
  all->addLayout(layDay(*this, window), 3);
  all->addSpacing(all->spacing());
  all->addLayout(layPlan(*this, window), 7);
  window->resize(1120, 720);
}

}  // namespace vellora
