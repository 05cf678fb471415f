#include "planning/daily_plan_window.h"

#include "grid/surface/grid_surface.h"
#include "window_fixture.h"

namespace vellora {

using namespace test;

class DailyPlanWindowTest : public PlanWindowTest {
 protected:
  DailyPlanWindow window_{state_, kMonday};
};

TEST_F(DailyPlanWindowTest, ShowsABlockInEachRowAndTheActivitiesThatAreOpen) {
  schedule_.plan(kMonday, u"001"_qs, u"读书"_qs, u"第一章"_qs, 3);
  open(window_);
  EXPECT_EQ(window_.windowTitle(), u"每日活动计划  2007年3月5日 星期一"_qs);
  EXPECT_EQ(grid().Rows(), 2);
  EXPECT_EQ(row(0), u"08:00-09:30/早读|||"_qs);
  EXPECT_EQ(row(1), u"20:00-21:00/晚间|读书|第一章|3"_qs);
  EXPECT_EQ(lines(u"List1"_qs), (QStringList{u"读书"_qs, u"跑步"_qs}));
  schedule_.block(u"003"_qs, u"06:00:00"_qs, u"07:00:00"_qs, u"晨练"_qs);
  window_.Activate();
  EXPECT_EQ(row(0), u"06:00-07:00/晨练|||"_qs) << "as soon as the board is activated";
  EXPECT_EQ(grid().CurrentRow(), 0);
}

TEST_F(DailyPlanWindowTest, ADoubleClickedActivityGoesOnAtItsRequirementAndIsSaved) {
  open(window_);
  clickCell(0, 1);
  doubleClick(u"List1"_qs, 1);
  EXPECT_EQ(row(1), u"20:00-21:00/晚间|跑步||"_qs);
  EXPECT_TRUE(isMarked(1));
  EXPECT_FALSE(isMarked(0));
  type(u"五公里\t3级"_qs);
  EXPECT_EQ(saved(), QStringList());
  click(u"cmdSV"_qs);
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|001|跑步|五公里|3"_qs});
  EXPECT_EQ(prompts_.warnings, QStringList{u"保存完毕!"_qs});
  EXPECT_FALSE(isMarked(1));
}

TEST_F(DailyPlanWindowTest, ASaveRightAfterTypingADateIsOfTheShownDayAndThenTurnsToTheTypedOne) {
  open(window_);
  QDate shown = kMonday;
  for (const bool byMouse : {true, false}) {
    doubleClick(u"List1"_qs, 0);
    tabTo(u"DTP1"_qs);
    press(Qt::Key_A, Qt::ControlModifier);
    type(byMouse ? u"2007-3-19"_qs : u"2007-3-26"_qs);
    EXPECT_TRUE(isMarked(0)) << "the shown day stays until the date is complete";
    byMouse ? click(u"cmdSV"_qs) : alt('S');
    EXPECT_EQ(saved().value(byMouse ? 0 : 1), shown.toString(Qt::ISODate) + u"|002|读书||0"_qs);
    shown = QDate(2007, 3, byMouse ? 19 : 26);
    EXPECT_EQ(window_.date(), shown);
    EXPECT_EQ(row(0), u"08:00-09:30/早读|||"_qs);
  }
}

}  // namespace vellora
