#include "planning/activity_plan_window.h"

#include "grid/surface/grid_surface.h"
#include "schedule/plan_rows.h"
#include "shell/date_picker.h"
#include "window_fixture.h"

namespace vellora {

using namespace test;

class ActivityPlanWindowTest : public PlanWindowTest {
 protected:
  static void setCount(const QString& box, const QString& count) {
    control(box).setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    type(count);
  }
  static QString summary() { return text(u"Text3"_qs); }

  ActivityPlanWindow window_{state_};
};

TEST_F(ActivityPlanWindowTest, OpensAtTodayWithTheFirstOpenActivityListed) {
  schedule_.plan(kMonday.addDays(1), u"002"_qs, u"读书"_qs, u"第一章"_qs, 3)
      .plan(kMonday, u"001"_qs, u"做完了"_qs)
      .plan(kMonday, u"009"_qs, u"读书"_qs);
  open(window_);
  EXPECT_EQ(lines(u"List1"_qs), (QStringList{u"读书"_qs, u"跑步"_qs}));
  EXPECT_EQ(lines(u"List2"_qs), (QStringList{u"08:00-09:30 早读"_qs, u"20:00-21:00 晚间"_qs}));
  EXPECT_EQ(window_.windowTitle(), u"项目活动计划  读书"_qs);
  EXPECT_EQ(row(1), u"2007-03-06/星期二|08:00-09:30/早读|读书|第一章|3"_qs);
  EXPECT_EQ(summary(), u"2007-03-05 星期一\n\n20:00-21:00 晚间\n  做完了\n009\n  读书\n"_qs);
  EXPECT_EQ(prompts_.warnings, QStringList{u"时间块编号:009在时间划分中没有找到!"_qs});
  window_.chooseActivity(u"跑步 "_qs);
  EXPECT_EQ(window_.chosenActivity(), u"读书"_qs) << "another name";
  window_.chooseActivity(u"跑步"_qs);
  EXPECT_EQ(window_.windowTitle(), u"项目活动计划  跑步"_qs);
}

TEST_F(ActivityPlanWindowTest, PlacesTheActivityOnlyWhereTheBlockIsFreeAndGoesOnAtTheRequirement) {
  const QDate tuesday = kMonday.addDays(1);
  schedule_.plan(tuesday, u"002"_qs, u"做完了"_qs);
  open(window_);
  control<DatePicker>(u"DTP1"_qs).setDate(tuesday);
  clickCell(0, 2);
  doubleClick(u"List2"_qs, 0);
  EXPECT_EQ(prompts_.warnings, QStringList{u" 当前时间已经排为做完了"_qs});
  EXPECT_EQ(row(2), u"||||"_qs);
  doubleClick(u"List2"_qs, 1);
  EXPECT_EQ(row(2), u"2007-03-06/星期二|20:00-21:00/晚间|读书||"_qs);
  EXPECT_EQ(grid().currentIndex(), grid().model()->index(2, kPlanRequirement));
  EXPECT_TRUE(isMarked(2));
  press(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(row(3), row(2));
  EXPECT_EQ(grid().CellTag(kPlanTime, 3), u"001"_qs);
}

TEST_F(ActivityPlanWindowTest, SavingTellsOfEachTakenBlockAndThenThatItIsDone) {
  open(window_);
  doubleClick(u"List2"_qs, 0);
  clickCell(0, 1);
  doubleClick(u"List2"_qs, 1);
  schedule_.plan(kMonday, u"001"_qs, u"跑步"_qs);
  click(u"cmdSV"_qs);
  EXPECT_EQ(prompts_.warnings,
            (QStringList{u"2007-03-05 当前时间已经排为跑步"_qs, u"保存完毕!"_qs}));
  EXPECT_EQ(saved(), (QStringList{u"2007-03-05|001|跑步|要求|1"_qs, u"2007-03-05|002|读书||0"_qs}));
  EXPECT_FALSE(isMarked(0));
  EXPECT_TRUE(isMarked(1));
  EXPECT_TRUE(summary().contains(u"08:00-09:30 早读\n  读书\n"_qs)) << summary().toStdString();
}

TEST_F(ActivityPlanWindowTest, RepeatsTheCurrentRowByDayAndByWeekAndUndoesItInOneStep) {
  schedule_.plan(kMonday.addDays(2), u"002"_qs, u"跑步"_qs);
  open(window_);
  doubleClick(u"List2"_qs, 0);
  type(u"第一章\n↑"_qs);
  setCount(u"Text4"_qs, u"2"_qs);
  click(u"CmdDAY"_qs);
  EXPECT_EQ(row(1), u"2007-03-06/星期二|08:00-09:30/早读|读书|第一章|"_qs);
  EXPECT_EQ(row(2), u"2007-03-07/星期三|08:00-09:30/早读|跑步|要求|1"_qs);
  EXPECT_TRUE(isMarked(1));
  EXPECT_FALSE(isMarked(2)) << "it is another activity's";
  EXPECT_EQ(grid().sheet().StyleAt(kPlanActivity, 2).textColour, kRed);
  EXPECT_EQ(grid().CurrentRow(), 3);
  clickCell(0, 0);
  setCount(u"Text1"_qs, u"1"_qs);
  click(u"CmdJH"_qs);
  EXPECT_EQ(row(1), u"2007-03-12/星期一|08:00-09:30/早读|读书|第一章|"_qs);
  clickCell(0, 0);
  press(Qt::Key_Z, Qt::ControlModifier, 2);
  EXPECT_EQ(row(0), u"2007-03-05/星期一|08:00-09:30/早读|读书|第一章|"_qs);
  EXPECT_EQ(row(1), u"||||"_qs);
}

TEST_F(ActivityPlanWindowTest, DeletesTheWholePlanOnlyAfterYes) {
  schedule_.plan(kMonday, u"001"_qs, u"读书"_qs).plan(kMonday, u"002"_qs, u"跑步"_qs);
  open(window_);
  for (const bool answer : {false, true}) {
    prompts_.answers = {answer};
    click(u"CmdDEL"_qs);
    EXPECT_EQ(saved().size(), answer ? 1 : 2);
  }
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|002|跑步|要求|1"_qs});
  EXPECT_EQ(row(0), u"||||"_qs);
  EXPECT_EQ(summary(), u"2007-03-05 星期一\n\n08:00-09:30 早读\n  跑步\n"_qs);
}

TEST_F(ActivityPlanWindowTest, ATypedTimeStandsForItsBlockAndADateThatIsBegunIsThePickedOne) {
  schedule_.plan(kMonday, u"002"_qs, u"读书"_qs);
  open(window_);
  typeCell(kPlanTime, 0, u"午间"_qs);
  EXPECT_EQ(prompts_.warnings.size(), 1) << "no block of that name";
  EXPECT_EQ(row(0), u"2007-03-05/星期一|08:00-09:30/早读|读书|要求|1"_qs);
  typeCell(kPlanTime, 0, u"晚间"_qs);
  control<DatePicker>(u"DTP1"_qs).setDate(kMonday.addDays(1));
  clickCell(kPlanDate, 4);
  press(Qt::Key_F2);
  type(u"\n"_qs);
  EXPECT_EQ(row(4), u"2007-03-06||||"_qs);
  click(u"cmdSV"_qs);
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|001|读书|要求|1"_qs});
}

}  // namespace vellora
