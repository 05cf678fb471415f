#include "random_user/habits.h"

#include "grid/surface/grid_surface.h"
#include "random_user/eyes.h"
#include "random_user/other_desk.h"
#include "random_user/pools.h"
#include "random_user/shown.h"
#include "shell/planner_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>

#include <memory>

namespace vellora::test {
namespace {

using Habit = void (*)(const Step&);
struct Choice {
  int weight;
  Habit habit;
};

template <typename Choices>
void follow(const Choices& choices, const Step& step) {
  int weights = 0;
  for (const Choice& choice : choices) weights += choice.weight;
  int drawn = step.dice.below(weights);
  for (const Choice& choice : choices) {
    drawn -= choice.weight;
    if (drawn < 0) return choice.habit(step);
  }
}

// ---- In every window -------------------------------------------------------------------------

void save(const Step& step) {
  if (step.dice.oneIn(10)) {
    step.script.key(Qt::Key_S, Qt::AltModifier);
  } else {
    step.script.click(control(u"cmdSV"_qs));
  }
  if (step.dice.oneIn(2)) return step.script.doubleClick(caption(u"确定"_qs));
  step.script.key(step.dice.oneIn(2) ? Qt::Key_Return : Qt::Key_Escape);
}

void closeWindow(const Step& step) {
  const int how = step.dice.below(3);
  if (how == 0) return step.script.click(control(u"CmdEND"_qs));
  if (how == 1) return step.script.key(Qt::Key_Escape);
  step.script.add(
      u"close by its frame"_qs,
      [] {
        if (auto* window = windowInHand(); window && window == front()) window->close();
      },
      true);
}

// By the buttons that close windows without a frame name.
void leaveWindow(const Step& step) {
  const auto* window = windowInHand();
  if (window && !controlNamed(*window, u"CmdEND"_qs) && step.dice.oneIn(2)) {
    return step.script.click(control(u"Command2"_qs));
  }
  closeWindow(step);
}

void clickAnything(const Step& step) {
  const auto controls = controlsOf(*front());
  if (controls.empty()) return step.script.key(Qt::Key_Escape);
  const Spot spot =
      inside(step.dice.pick(controls), step.dice.below(100) / 99.0, step.dice.below(100) / 99.0);
  switch (step.dice.below(6)) {
    case 0:
      return step.script.rightClick(spot);
    case 1:
      return step.script.doubleClick(spot);
    case 2:
      return step.script.click(spot, Qt::ShiftModifier);
    default:
      return step.script.click(spot);
  }
}

void dragAnywhere(const Step& step) {
  step.script.drag(step.anyCell(5, 8), step.anyCell(5, 8));
}

void pressKeys(const Step& step) {
  const int times = 1 + step.dice.below(3);
  for (int i = 0; i < times; ++i) {
    const auto [key, modifiers] = step.dice.pick(kKeys);
    step.script.key(key, modifiers);
  }
}

void typeAnything(const Step& step) {
  step.script.type(step.dice.pick(texts()));
  if (step.dice.oneIn(2)) step.script.key(step.dice.oneIn(2) ? Qt::Key_Return : Qt::Key_Tab);
}

// What lies in the clipboard comes from any program, or there is nothing in it.
void fillClipboard(const Step& step) {
  const int what = step.dice.below(4);
  if (what == 0) {
    return step.script.add(u"empty the clipboard"_qs,
                           [] { QGuiApplication::clipboard()->clear(); });
  }
  const QString text = what == 1 ? step.dice.pick(texts()) : step.dice.pick(tableTexts());
  step.script.add(u"clipboard “"_qs + QString(text).replace(u'\n', u'/') + u'”', [text, what] {
    if (what != 3) return QGuiApplication::clipboard()->setText(text);
    auto* data = new QMimeData;
    data->setData(u"image/x-anything"_qs, "1");
    QGuiApplication::clipboard()->setMimeData(data);
  });
}

void pasteSomething(const Step& step) {
  if (step.dice.oneIn(2)) fillClipboard(step);
  if (step.dice.oneIn(2)) step.script.click(step.anyCell(5, 8));
  step.script.key(Qt::Key_V, Qt::ControlModifier);
}

void cutOrCopyAndPaste(const Step& step) {
  if (step.dice.oneIn(3)) {
    step.script.key(Qt::Key_A, Qt::ControlModifier);
  } else {
    const int row = step.dice.below(6);
    step.script.click(cell(0, row));
    step.script.click(cell(4, row + step.dice.below(2)), Qt::ShiftModifier);
  }
  step.script.key(step.dice.oneIn(2) ? Qt::Key_X : Qt::Key_C, Qt::ControlModifier);
  step.script.click(cell(0, step.dice.below(8)));
  step.script.key(Qt::Key_V, Qt::ControlModifier);
  if (step.dice.oneIn(2)) save(step);
}

void clearCells(const Step& step) {
  if (step.dice.oneIn(2)) {
    step.script.key(Qt::Key_A, Qt::ControlModifier);
  } else {
    step.script.drag(step.anyCell(5, 8), step.anyCell(5, 8));
  }
  step.script.key(Qt::Key_Delete);
  if (step.dice.oneIn(3)) closeWindow(step);
}

void editCell(const Step& step) {
  step.script.click(step.anyCell(5, 8));
  if (step.dice.oneIn(2)) step.script.key(Qt::Key_F2);
  step.script.type(step.dice.pick(texts()));
  step.script.key(step.dice.oneIn(2) ? Qt::Key_Return : Qt::Key_Tab);
  if (step.dice.oneIn(3)) save(step);
}

// A day that the window writes into an empty date cell when it is opened stays there.
bool isProposedDate(const QString& before, const QString& after) {
  return before.section(u'|', 0, 0).isEmpty() && dateRead(after.section(u'|', 0, 0)) &&
         before.section(u'|', 1).remove(u'|') == after.section(u'|', 1).remove(u'|');
}

// The rows of the grid in hand, to be compared with later.
struct Noted {
  QPointer<PlannerWindow> window;
  QStringList rows;
  QStringList edit;  // what was changed after it

  static Noted now() {
    auto* window = windowInHand();
    const auto* grid = window && window == front() ? gridOf(*window) : nullptr;
    if (!grid || !grid->hasFocus() || openCell(*window)) return {};
    return {window, rowsOf(*grid), {}};
  }
  QStringList changedRows(const Noted& other) const {
    QStringList changed;
    if (!window || window != other.window) return changed;
    for (qsizetype i = 0; i < std::max(rows.size(), other.rows.size()); ++i) {
      const QString row = other.rows.value(i);
      if (rows.value(i) == row || isProposedDate(rows.value(i), row)) continue;
      changed << rows.value(i) + u" → "_qs + row;
    }
    return changed;
  }
};

QString kindInHand() {
  const auto* window = windowInHand();
  return window ? kindOf(*window) : QString();
}

void changeCellAndUndo(const Step& step) {
  const auto noted = std::make_shared<Noted>();
  step.script.click(step.anyCell(5, 8));
  step.script.add(u"note the cells"_qs, [noted] { *noted = Noted::now(); });
  if (step.dice.oneIn(4)) {
    step.script.key(Qt::Key_Delete);
  } else {
    step.script.type(step.dice.pick(texts()));
    step.script.key(Qt::Key_Return);
  }
  step.script.add(u"key Ctrl+Z"_qs, [noted, &hands = step.script.hands()] {
    noted->edit = noted->changedRows(Noted::now());
    if (noted->edit.size() == 1) hands.pressKey(Qt::Key_Z, Qt::ControlModifier);
  });
  step.script.add(u"key up"_qs, [&hands = step.script.hands()] {
    hands.releaseKey(Qt::Key_Z, Qt::ControlModifier);
  });
  step.script.add(u"compare the cells"_qs, [noted, tell = step.around.tell] {
    const QStringList changed = noted->changedRows(Noted::now());
    if (noted->edit.size() != 1 || changed.isEmpty()) return;
    tell(kindInHand() + u": undoing an edit leaves other texts"_qs,
         u"edit "_qs + noted->edit[0] + u", left "_qs + changed.join(u"; "_qs));
  });
}

void changeCellAndEscape(const Step& step) {
  const auto noted = std::make_shared<Noted>();
  step.script.click(step.anyCell(5, 8));
  step.script.add(u"note the cells"_qs, [noted] { *noted = Noted::now(); });
  if (step.dice.oneIn(2)) step.script.key(Qt::Key_F2);
  step.script.type(step.dice.pick(texts()));
  if (step.dice.oneIn(2)) step.script.key(step.dice.pick(kLoneKeys));
  step.script.key(Qt::Key_Escape);
  step.script.add(u"compare the cells"_qs, [noted, tell = step.around.tell] {
    const QStringList changed = noted->changedRows(Noted::now());
    if (!changed.isEmpty()) {
      tell(kindInHand() + u": Escape keeps what was typed into a cell"_qs, changed.join(u"; "_qs));
    }
  });
}

// ---- Dates -----------------------------------------------------------------------------------

void stepDays(const Step& step) {
  const auto button = step.dice.pick(kDayButtons);
  step.script.click(control(QString::fromLatin1(button)));
}

QString pickerInHand() {
  for (const char* name : kPickers) {
    const auto* window = windowInHand();
    if (window && controlNamed(*window, QString::fromLatin1(name)))
      return QString::fromLatin1(name);
  }
  return {};
}

void typeDate(const Step& step) {
  const QString picker = pickerInHand();
  const QString text = step.dice.pick(dateTexts());
  const auto old = std::make_shared<QString>();
  step.script.click(control(picker));
  step.script.key(Qt::Key_A, Qt::ControlModifier);
  step.script.add(u"note the date"_qs, [old, picker] { *old = textIn(*windowInHand(), picker); });
  step.script.type(text);
  const bool isTakenBack = step.dice.oneIn(4);
  const bool ends = step.dice.oneIn(2);
  step.script.key(isTakenBack ? Qt::Key_Escape : ends ? Qt::Key_Return : Qt::Key_Tab);
  step.script.add(u"look at the date"_qs, [=, tell = step.around.tell, kind = kindInHand()] {
    const auto* window = windowInHand();
    if (!window || window != front() || kindOf(*window) != kind) return;
    const QString shown = textIn(*window, picker);
    const auto typed = dateRead(text);
    const bool isOld = shown == *old;
    const bool isTyped = typed && dateRead(shown) == typed;
    if (isTakenBack ? isOld : isTyped || (!typed && isOld)) return;
    if (!dateRead(shown)) return;  // marked as no date
    tell(
        kind + (isTakenBack ? u": Escape leaves another date"_qs : u": a typed date is another"_qs),
        u"%1, typed “%2”, shows %3"_qs.arg(*old, text, shown));
  });
}

// ---- The board -------------------------------------------------------------------------------

void openWindow(const Step& step) {
  const Spot button = control(QString::fromLatin1(step.dice.pick(kWindowButtons)));
  if (step.dice.oneIn(5)) return step.script.doubleClick(button);
  step.script.click(button);
}

void openFromCell(const Step& step) {
  const Spot spot = cell(1 + step.dice.below(7), step.dice.below(5));
  if (step.dice.oneIn(2)) return step.script.doubleClick(spot);
  step.script.click(spot);
}

void useBoardCommands(const Step& step) {
  if (step.dice.oneIn(8)) return step.script.click(control(u"Command99"_qs));  // ends the program
  if (step.dice.oneIn(3)) return step.script.click(control(u"Command9"_qs));   // clears
  step.script.key(step.dice.oneIn(2) ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
}

// ---- The planner's windows -------------------------------------------------------------------

void placeInDay(const Step& step) {
  step.script.click(cell(step.dice.below(4), step.dice.below(6)));
  step.script.doubleClick(line(u"List1"_qs, step.dice.below(5)));
  step.script.type(step.dice.pick(texts()));
  step.script.key(Qt::Key_Return);
  if (step.dice.oneIn(2)) save(step);
}

void chooseActivity(const Step& step) {
  step.script.click(line(u"List1"_qs, step.dice.below(5)));
}

void placeBlock(const Step& step) {
  step.script.click(cell(0, 6 + step.dice.below(4)));
  step.script.doubleClick(line(u"List2"_qs, step.dice.below(6)));
  step.script.type(step.dice.pick(texts()));
  step.script.key(Qt::Key_Return);
  if (step.dice.oneIn(2)) save(step);
}

void nameActivity(const Step& step) {
  step.script.doubleClick(control(u"Text2"_qs));
  step.script.key(Qt::Key_A, Qt::ControlModifier);
  step.script.type(step.dice.pick(activities()));
  if (step.dice.oneIn(2)) step.script.click(control(u"cmdOP"_qs));
  if (step.dice.oneIn(2)) save(step);
}

void dateRow(const Step& step) {
  step.script.click(cell(0, step.dice.below(8)));
  step.script.type(step.dice.pick(dateTexts()));
  step.script.key(Qt::Key_Return);
  if (!step.dice.oneIn(3)) save(step);
}

void copyRowToDate(const Step& step) {
  const int row = step.dice.below(4);
  step.script.click(cell(0, row));
  step.script.click(cell(4, row), Qt::ShiftModifier);
  step.script.key(step.dice.oneIn(2) ? Qt::Key_C : Qt::Key_X, Qt::ControlModifier);
  step.script.click(cell(0, row + 4));
  step.script.key(Qt::Key_V, Qt::ControlModifier);
  step.script.click(cell(0, row + 4));
  step.script.type(step.dice.pick(dateTexts()));
  step.script.key(Qt::Key_Return);
  save(step);
}

void repeatRow(const Step& step) {
  step.script.click(cell(0, step.dice.below(4)));
  step.script.doubleClick(control(step.dice.oneIn(2) ? u"Text4"_qs : u"Text1"_qs));
  step.script.type(QString::number(step.dice.below(4)));
  step.script.click(control(step.dice.oneIn(2) ? u"CmdDAY"_qs : u"CmdJH"_qs));
  if (step.dice.oneIn(2)) save(step);
}

void deletePlan(const Step& step) {
  step.script.click(control(u"CmdDEL"_qs));
  step.script.click(caption(step.dice.oneIn(2) ? u"是"_qs : u"否"_qs));
}

void fillRow(const Step& step) {
  step.script.click(cell(0, step.dice.below(8)));
  const bool isTimed = kindInHand() == u"TimeBlockEditor"_qs;
  for (int i = 0; i < 2; ++i) {
    step.script.type(step.dice.pick(isTimed ? timeTexts() : dateTexts()));
    step.script.key(Qt::Key_Tab);
  }
  for (int i = 0; i < 2; ++i) {
    step.script.type(step.dice.pick(texts()));
    step.script.key(Qt::Key_Tab);
  }
  save(step);
}

void addWeeks(const Step& step) {
  step.script.click(step.anyCell(3, 8));
  step.script.click(control(step.dice.oneIn(2) ? u"CmdBR"_qs : u"CmdLX"_qs));
  step.script.type(step.dice.pick(texts()));
  step.script.key(Qt::Key_Return);
  if (step.dice.oneIn(2)) save(step);
}

void typeItem(const Step& step) {
  if (step.dice.oneIn(2)) {
    step.script.click(control(u"CmdNEW"_qs));
  } else {
    step.script.click(cell(0, step.dice.below(6)));
  }
  if (step.dice.oneIn(2)) {
    step.script.doubleClick(control(u"TxtHDBH"_qs));
    step.script.type(QString::number(step.dice.below(12)).rightJustified(3, u'0'));
  }
  step.script.doubleClick(control(u"txtHDMC"_qs));
  step.script.type(step.dice.pick(texts()));
  if (step.dice.oneIn(3)) return closeWindow(step);
  step.script.click(control(step.dice.oneIn(5) ? u"cmdCancel"_qs : u"cmdOK"_qs));
}

void deleteItem(const Step& step) {
  step.script.click(cell(1, step.dice.below(6)));
  step.script.click(control(u"CmdDEL"_qs));
}

void filterItems(const Step& step) {
  step.script.click(control(u"Combo2"_qs));
  step.script.key(Qt::Key_Down, {}, step.dice.below(4));
  step.script.key(Qt::Key_Return);
}

void writeMemo(const Step& step) {
  step.script.click(control(u"Text1"_qs));
  step.script.type(step.dice.pick(texts()));
  if (step.dice.oneIn(3)) pasteSomething(step);
  if (step.dice.oneIn(2)) step.script.click(control(u"CmdSV"_qs));
}

void pressDefault(const Step& step) {
  step.script.click(control(u"Command1"_qs));
}

void backUpOrRestore(const Step& step) {
  step.script.click(control(step.dice.oneIn(3) ? u"CmdI"_qs : u"cmdO"_qs));
}

// The reading of what the window shows may have failed.
void openWhileLockedAndSave(const Step& step) {
  openWhileLocked(step);
  step.script.click(control(u"CmdNEW"_qs));
  step.script.click(control(u"cmdSV"_qs));
}

constexpr Choice kAnyWindow[]{{6, clickAnything}, {4, pressKeys},   {3, typeAnything},
                              {1, fillClipboard}, {9, leaveWindow}, {2, changeOtherDesk}};
constexpr Choice kAnyGrid[]{{2, dragAnywhere}, {3, pasteSomething},     {3, cutOrCopyAndPaste},
                            {2, clearCells},   {6, editCell},           {3, changeCellAndUndo},
                            {3, save},         {3, changeCellAndEscape}};
constexpr Choice kBoard[]{
    {9, openWindow}, {2, openFromCell},     {2, openWhileLocked}, {1, openWhileLockedAndSave},
    {2, stepDays},   {1, useBoardCommands}, {2, typeDate}};
constexpr Choice kDailyPlan[]{{6, placeInDay}, {2, stepDays}, {3, typeDate}, {1, save}};
constexpr Choice kActivityPlan[]{{3, chooseActivity}, {4, placeBlock}, {3, nameActivity},
                                 {4, dateRow},        {3, repeatRow},  {3, copyRowToDate},
                                 {1, deletePlan},     {1, typeDate}};
constexpr Choice kTableEditor[]{{4, fillRow}, {2, addWeeks}, {2, save}};
constexpr Choice kItems[]{{6, typeItem}, {3, deleteItem}, {2, filterItems}};
constexpr Choice kMemo[]{{6, writeMemo}, {2, stepDays}, {2, typeDate}};
constexpr Choice kOther[]{{2, pressDefault}, {2, typeDate}, {2, backUpOrRestore}};

void workIn(const QString& kind, const Step& step) {
  if (kind == u"WeekBoard"_qs) return follow(kBoard, step);
  if (kind == u"DailyPlanWindow"_qs) return follow(kDailyPlan, step);
  if (kind == u"ActivityPlanWindow"_qs) return follow(kActivityPlan, step);
  if (kind == u"ActivityItemEditor"_qs) return follow(kItems, step);
  if (kind == u"MemoWindow"_qs) return follow(kMemo, step);
  if (kind.endsWith(u"Editor"_qs)) return follow(kTableEditor, step);
  follow(kOther, step);
}

// ---- Boxes, menus, dialogs -------------------------------------------------------------------

void answer(const Step& step) {
  const auto controls = controlsOf(*front());
  if (controls.empty() || step.dice.oneIn(4)) {
    return step.script.key(step.dice.oneIn(2) ? Qt::Key_Return : Qt::Key_Escape);
  }
  const Spot button = inside(step.dice.pick(controls), 0.5, 0.5);
  if (step.dice.oneIn(4)) return step.script.doubleClick(button);
  step.script.click(button);
}

void useDialog(const Step& step) {
  if (step.dice.oneIn(2)) return step.script.key(Qt::Key_Escape);
  if (step.dice.oneIn(2)) return clickAnything(step);
  if (step.dice.oneIn(2)) step.script.type(u"KTZ1.SKN"_qs);
  step.script.key(step.dice.oneIn(2) ? Qt::Key_Return : Qt::Key_Down);
}

}  // namespace

void makeStep(const Step& step) {
  const QWidget* window = front();
  if (!window) return;
  if (kindOf(*window) == u"QMessageBox"_qs || isWaiting(true)) return answer(step);
  if (window != windowInHand()) return useDialog(step);
  const QString kind = kindOf(*window);
  const bool isGrid = kind.endsWith(u"PlanWindow"_qs) || kind == u"TimeBlockEditor"_qs ||
                      kind == u"WeekNameEditor"_qs;
  const int what = step.dice.below(10);
  if (what < 5) return workIn(kind, step);
  if (what < 8 && isGrid) return follow(kAnyGrid, step);
  follow(kAnyWindow, step);
}

}  // namespace vellora::test
