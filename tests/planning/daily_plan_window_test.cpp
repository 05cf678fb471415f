#include "planning/daily_plan_window.h"

#include "routine/calendar_text.h"
#include "window_fixture.h"

namespace vellora {

using test::kToday;

class DailyPlanWindowTest : public test::WindowTest {
 protected:
  void open() {
    window_.Load();
    WindowTest::open(window_);
  }

  DailyPlanWindow window_{state_, kToday};
};

TEST_F(DailyPlanWindowTest, OpensAtTheBoardsDateWithABlockInEachRow) {
  schedule_.plan(kToday, u"001"_qs, u"读书"_qs, u"第一章"_qs, 3);
  open();
  EXPECT_EQ(window_.windowTitle(), u"每日活动计划  2007年3月5日 星期一"_qs);
  EXPECT_EQ(grid(window_).Rows(), 2);
  EXPECT_EQ(row(window_, 0), u"08:00-09:30/早读|||"_qs);
  EXPECT_EQ(row(window_, 1), u"20:00-21:00/晚间|读书|第一章|3"_qs);
  EXPECT_EQ(lines(window_, u"List1"_qs), (QStringList{u"读书"_qs, u"跑步"_qs}));
  EXPECT_EQ(grid(window_).CurrentRow(), 0);
}

TEST_F(DailyPlanWindowTest, ShowsTheDayThatWasSetBetweenLoadingAndShowing) {
  window_.Load();
  window_.setDate(kToday.addDays(2));
  window_.Show();
  EXPECT_EQ(window_.windowTitle(), u"每日活动计划  2007年3月7日 星期三"_qs);
  EXPECT_EQ(window_.findChild<QLabel*>(u"Lxq"_qs)->text(), u"星期三"_qs);
}

TEST_F(DailyPlanWindowTest, ADoubleClickedActivityTakesARequirementAndALevelAndIsSaved) {
  open();
  grid(window_).SetCurrentCell(0, 1);
  doubleClick(window_, u"List1"_qs, 1);
  EXPECT_EQ(row(window_, 1), u"20:00-21:00/晚间|跑步||"_qs);
  EXPECT_EQ(grid(window_).currentIndex().column(), 2);
  EXPECT_EQ(grid(window_).CurrentRow(), 1);
  EXPECT_TRUE(isMarked(window_, 1));
  EXPECT_FALSE(isMarked(window_, 0));
  type(window_, 2, 1, u"五公里"_qs);
  type(window_, 3, 1, u"3级"_qs);
  EXPECT_EQ(saved(), QStringList());
  click(window_, u"cmdSV"_qs);
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|001|跑步|五公里|3"_qs});
  EXPECT_EQ(prompts_.warnings, QStringList{u"保存完毕!"_qs});
  EXPECT_FALSE(isMarked(window_, 1));
}

TEST_F(DailyPlanWindowTest, ASaveRightAfterTypingADateIsOfTheShownDayAndThenTurnsToTheTypedOne) {
  open();
  auto* picker = window_.findChild<DatePicker*>(u"DTP1"_qs);
  QDate shown = kToday;
  for (const bool byMouse : {true, false}) {
    doubleClick(window_, u"List1"_qs, 0);
    picker->setFocus();
    picker->selectAll();
    QTest::keyClicks(picker, byMouse ? u"2007-3-19"_qs : u"2007-3-26"_qs);
    EXPECT_TRUE(isMarked(window_, 0)) << "the shown day stays until the date is complete";
    if (byMouse) click(window_, u"cmdSV"_qs);
    if (!byMouse) QTest::keyClick(picker, Qt::Key_S, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return saved().size() == (byMouse ? 1 : 2); }));
    EXPECT_EQ(saved().last(), isoDate(shown) + u"|002|读书||0"_qs);
    shown = QDate(2007, 3, byMouse ? 19 : 26);
    EXPECT_EQ(window_.date(), shown);
    EXPECT_EQ(row(window_, 0), u"08:00-09:30/早读|||"_qs);
  }
}

TEST_F(DailyPlanWindowTest, AnUnfinishedCellIsSavedWithTheRest) {
  open();
  doubleClick(window_, u"List1"_qs, 0);
  commit(*edit(window_, 2, 0), u"第一章"_qs);
  window_.SaveDayPlan();
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|002|读书|第一章|0"_qs});
}

TEST_F(DailyPlanWindowTest, BlocksChangedMeanwhileAppearWhenItIsActivatedAgain) {
  open();
  schedule_.block(u"003"_qs, u"06:00:00"_qs, u"07:00:00"_qs, u"晨练"_qs);
  window_.Activate();
  EXPECT_EQ(row(window_, 0), u"06:00-07:00/晨练|||"_qs);
  EXPECT_EQ(grid(window_).Rows(), 3);
}

}  // namespace vellora
