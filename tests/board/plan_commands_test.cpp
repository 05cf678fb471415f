#include "board/week_board.h"
#include "grid/surface/grid_surface.h"
#include "store/undo_log.h"
#include "support/hands.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

namespace vellora {
namespace {

using namespace test;

// Two blocks; on Monday 读书 and 休息 one below the other, on Tuesday 跑步 in the upper one.
class PlanCommandsTest : public PlannerTest {
 protected:
  PlanCommandsTest() {
    schedule_.fullDay(2)
        .item(u"1"_qs, u"读书"_qs, u"2-学习"_qs)
        .item(u"2"_qs, u"跑步"_qs, u"3-运动"_qs)
        .plan(kMonday, u"001"_qs, u"读书"_qs)
        .plan(kMonday, u"002"_qs, u"休息"_qs)
        .plan(kMonday.addDays(1), u"001"_qs, u"跑步"_qs);
    open(board_);
    before_ = plans();
  }
  // In its dialogs the user asks for two weeks and presses Enter.
  void trigger(const QString& command) {
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, &hand, [this] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (!dialog || !dialog->isActiveWindow()) return;
      if (auto* weeks = dialog->findChild<QSpinBox*>()) weeks->setValue(2);
      if (auto* list = dialog->findChild<QListWidget*>()) conflicts_ = list->count();
      press(Qt::Key_Return);
    });
    hand.start(1);
    board_.findChild<QAction*>(command)->trigger();
    board_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&board_));
  }
  void at(int col, int row) {
    grid().SetCurrentCell(col, row);
    grid().Focus();
  }
  // Days from Monday on, block and activity of every entry.
  QString plans() {
    QStringList lines;
    for (const QString& line : savedPlans(store_)) {
      const QDate day = QDate::fromString(line.section(u'|', 0, 0), Qt::ISODate);
      lines << QString::number(kMonday.daysTo(day)) + u'/' + line.section(u'|', 1, 1).right(1) +
                   line.section(u'|', 2, 2);
    }
    return lines.join(u' ');
  }
  QString status() { return text(u"StatusLine"_qs); }

  WeekBoard board_{state_};
  QString before_;
  int conflicts_ = -1;  // that the last dialog listed
};

}  // namespace

TEST_F(PlanCommandsTest, MoveCopyAndCancelWithTheKeysAndAreUndone) {
  at(1, 1);
  press(Qt::Key_Delete);
  EXPECT_EQ(plans(), u"0/2休息 1/1跑步");
  EXPECT_EQ(cell(1, 1), QString());
  EXPECT_TRUE(status().startsWith(u"已取消“读书”"_qs));
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(plans(), before_);
  EXPECT_EQ(cell(1, 1), u"读书/要求");
  at(1, 1);
  press(Qt::Key_Down, Qt::ShiftModifier);
  press(Qt::Key_C, Qt::ControlModifier);
  at(3, 1);
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(plans(), u"0/1读书 0/2休息 1/1跑步 2/1读书 2/2休息") << "with its shape";
  at(3, 2);
  press(Qt::Key_X, Qt::ControlModifier);
  at(4, 1);
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(plans(), u"0/1读书 0/2休息 1/1跑步 2/1读书 3/1休息");
  for (int i = 0; i < 2; ++i) press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(plans(), before_);
  press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(plans(), u"0/1读书 0/2休息 1/1跑步 2/1读书 2/2休息");
}

TEST_F(PlanCommandsTest, ADragMovesCtrlCopiesAndATakenPlaceIsAskedAbout) {
  dragCell(1, 1, 3, 2);
  EXPECT_EQ(plans(), u"0/2休息 1/1跑步 2/2读书");
  EXPECT_EQ(status(), u"“读书”已从 星期一 时段 移到 星期三 时段");
  dragCell(3, 2, 1, 1, Qt::ControlModifier);
  EXPECT_EQ(plans(), u"0/1读书 0/2休息 1/1跑步 2/2读书");
  prompts_.choices = {1, 0};
  dragCell(2, 1, 1, 1);
  EXPECT_EQ(plans(), u"0/1读书 0/2休息 1/1跑步 2/2读书") << "kept";
  dragCell(2, 1, 1, 1);
  EXPECT_EQ(plans(), u"0/1跑步 0/2休息 2/2读书") << "replaced";
  EXPECT_EQ(prompts_.questions.size(), 2);
  dragCell(5, 1, 6, 2);
  EXPECT_EQ(grid().selectedCells().row2, 2) << "from an empty cell it selects";
}

TEST_F(PlanCommandsTest, ChangeTextsAndArrangeInDialogs) {
  at(1, 1);
  inWindowOpenedBy([] { press(Qt::Key_F2); },
                   [] {
                     press(Qt::Key_A, Qt::ControlModifier);
                     type(u"第二章\t3"_qs);
                     press(Qt::Key_Return);
                   });
  EXPECT_EQ(prompts_.warnings, QStringList()) << status().toStdString();
  EXPECT_EQ(savedPlans(store_).first(), u"2007-03-05|001|读书|第二章|3"_qs);
  at(5, 1);
  inWindowOpenedBy([] { type(u"p"_qs); },
                   [] {
                     EXPECT_EQ(lines(u"Activities"_qs), (QStringList{u"3-运动"_qs, u"跑步"_qs}));
                     type(u"b\n"_qs);
                   });
  EXPECT_EQ(cell(5, 1), u"跑步/");
}

TEST_F(PlanCommandsTest, AWeekIsCopiedClearedAndPostponedAfterItsConflictsAreShown) {
  schedule_.plan(kMonday.addDays(8), u"001"_qs, u"别的"_qs);
  trigger(u"CopyWeek"_qs);
  EXPECT_EQ(conflicts_, 1);
  EXPECT_EQ(plans(), u"0/1读书 0/2休息 1/1跑步 7/1读书 7/2休息 8/1别的 14/1读书 14/2休息 15/1跑步");
  EXPECT_EQ(status(), u"复制本周：5 项，1 处保留原有");
  trigger(u"Postpone"_qs);
  EXPECT_EQ(plans(),
            u"7/1读书 7/2休息 8/1跑步 14/1读书 14/2休息 15/1别的 21/1读书 21/2休息 22/1跑步");
  for (int i = 0; i < 2; ++i) press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(plans(), before_ + u" 8/1别的");
}

TEST_F(PlanCommandsTest, FindingGoesFromHitToHitWhereverTheyAre) {
  schedule_.memo(kMonday.addDays(20), u"交读书笔记"_qs)
      .weekName(kMonday.addDays(70), kMonday.addDays(76), u"读书周"_qs)
      .plan(kMonday.addDays(-30), u"002"_qs, u"Reading"_qs, u"读书一章"_qs);
  at(1, 1);
  press(Qt::Key_F, Qt::ControlModifier);
  type(u"读书"_qs);
  EXPECT_TRUE(QTest::qWaitFor([] { return text(u"FindCount"_qs) == u"共 4 处"; }));
  EXPECT_EQ(lines(u"FindHits"_qs),
            (QStringList{u"2007-02-03 星期六 时段  Reading 读书一章"_qs,
                         u"2007-03-05 星期一 时段  读书 要求"_qs,
                         u"2007-03-25 星期日  交读书笔记"_qs, u"2007-05-14 星期一  读书周"_qs}));
  const std::tuple<Qt::KeyboardModifiers, QDate, CellPlace> steps[]{
      {Qt::NoModifier, kMonday, {1, 1}},
      {Qt::NoModifier, kMonday.addDays(14), {7, 0}},
      {Qt::ShiftModifier, kMonday, {1, 1}},
      {Qt::ShiftModifier, kMonday.addDays(-35), {6, 2}}};
  for (const auto& [modifiers, first, place] : steps) {
    press(Qt::Key_Return, modifiers);
    EXPECT_EQ(board_.firstDay(), first);
    EXPECT_EQ(grid().currentPlace(), place);
  }
  press(Qt::Key_Escape);
  EXPECT_TRUE(grid().hasFocus());
}

}  // namespace vellora
