#include "editors/time_block_editor.h"
#include "editors/week_name_editor.h"
#include "grid/surface/grid_surface.h"
#include "support/hands.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

namespace vellora {

using namespace test;

using TableEditorTest = PlannerTest;

TEST_F(TableEditorTest, BlocksAreStoredOnceEveryCellCanBeAndOpenAloneDropsWhatWasTyped) {
  schedule_.block(u"a"_qs, u"08:00:00"_qs, u"09:00:00"_qs, u"一"_qs);
  TimeBlockEditor editor(state_);
  open(editor);
  type(u"↓9:00\t9:60\tb\t二\t"_qs);
  click(u"cmdSV"_qs);
  EXPECT_EQ(prompts_.warnings,
            QStringList(u"第 2 行的“结束时间”要填时间，例如 08:30，“9:60”不是。"_qs));
  EXPECT_EQ(row(1), u"9:00|9:60|b|二"_qs);
  EXPECT_EQ(dumpOf(store_).size(), 1);
  type(u"10:00\n"_qs);  // into the cell that was shown
  click(u"cmdSV"_qs);
  EXPECT_EQ(prompts_.warnings.last(), u"保存完毕!"_qs);
  EXPECT_EQ(dumpOf(store_).last(), u"SJ|b|二|09:00:00|10:00:00"_qs);
  type(u"7:00\t"_qs);
  press(Qt::Key_Escape);
  EXPECT_TRUE(editor.isVisible());
  type(u"7:30"_qs);
  alt('O');
  EXPECT_EQ(row(2), u"|||"_qs) << "not even what was still being typed";
  press(Qt::Key_Escape);
  EXPECT_FALSE(editor.isVisible());
}

TEST_F(TableEditorTest, PlansOfABlockThatGoesGetAnotherOneOrHoldUpTheSave) {
  schedule_.block(u"a"_qs, u"08:00:00"_qs, u"09:00:00"_qs, u"一"_qs)
      .block(u"b"_qs, u"10:00:00"_qs, u"11:00:00"_qs, u"二"_qs)
      .plan(kMonday, u"a"_qs, u"读书"_qs)
      .plan(kMonday, u"b"_qs, u"跑步"_qs);
  TimeBlockEditor editor(state_);
  open(editor);
  typeCell(2, 0, u"c"_qs);
  prompts_.choices = {2, 0, 0};
  const QStringList before = dumpOf(store_);
  click(u"cmdSV"_qs);
  EXPECT_EQ(dumpOf(store_), before);
  EXPECT_EQ(prompts_.questions, QStringList(u"保存后有些计划会没有时间块：编号“a”的 1 条。"_qs));
  inWindowOpenedBy([] { click(u"cmdSV"_qs); }, [] { type(u"↓\n"_qs); });
  EXPECT_EQ(dumpOf(store_), before);
  EXPECT_EQ(prompts_.warnings.last(),
            u"没有保存：编号“a”的计划不能改到编号“b”，因为那里已有安排：2007-03-05 等 1 处。"_qs);
  inWindowOpenedBy([] { click(u"cmdSV"_qs); }, [] { type(u"\n"_qs); });
  EXPECT_EQ(savedPlans(store_),
            (QStringList{u"2007-03-05|b|跑步|要求|1"_qs, u"2007-03-05|c|读书|要求|1"_qs}));
  EXPECT_EQ(prompts_.warnings.last(), u"保存完毕!"_qs);
}

TEST_F(TableEditorTest, WeeksAreFilledInAndTakeOverANameFromTheUsersOwnMovesOnly) {
  WeekNameEditor editor(state_);
  open(editor);
  click(u"CmdBR"_qs);
  type(u"开学\n↑"_qs);
  click(u"CmdLX"_qs);
  EXPECT_EQ(grid().CurrentRow(), 10);
  EXPECT_EQ(row(10), u"2007-05-14|2007-05-20|"_qs);
  grid().SetCurrentCell(2, 0);
  type(u"↓↓"_qs);
  EXPECT_EQ(row(2), u"2007-03-19|2007-03-25|开学"_qs);
  click(u"cmdSV"_qs);
  EXPECT_EQ(prompts_.warnings.last(), u"保存完毕!"_qs);
  EXPECT_EQ(dumpOf(store_).size(), 3);
  alt('O');
  EXPECT_EQ(row(3), u"||"_qs) << "opening takes over no name";
  type(u"↓↓↓"_qs);
  EXPECT_EQ(row(3), u"||开学"_qs);
  EXPECT_EQ(grid().Rows(), 5) << "an empty row always follows";
  EXPECT_EQ(text(u"EditStatus"_qs), QString()) << "a name alone is no change";
  grid().SetCurrentCell(0, 3);
  type(u"三月\n↑"_qs);
  click(u"CmdLX"_qs);
  EXPECT_EQ(prompts_.warnings.last(),
            u"第 4 行的“开始时间”要填日期，例如 2007-03-05，“三月”不是。"_qs);
}

}  // namespace vellora
