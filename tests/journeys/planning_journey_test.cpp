#include "../planning/window_fixture.h"
#include "board/week_board.h"
#include "planning/activity_plan_window.h"
#include "planning/daily_plan_window.h"

#include <QTimer>

namespace vellora {

using test::kToday;

// A user at the board, with both planning windows attached to it.
class Planning : public test::WindowTest {
 protected:
  Planning() {
    board_.attachDayHeading([this](QDate day) {
      DailyPlanWindow window(state_, board_.firstDay(), &board_);
      window.Load();
      window.setDate(day);
      useModally(window);
    });
    board_.attachPlannedCell([this](const QString& activity) {
      ActivityPlanWindow window(state_, &board_);
      window.Load();
      window.chooseActivity(activity);
      useModally(window);
    });
    board_.Load();
    WindowTest::open(board_);
  }

  // What the user does in the window that opens next, before closing it.
  using Hands = std::function<void(PlannerWindow& window)>;
  void clickBoard(int col, int row, const Hands& hands) {
    hands_ = hands;
    GridSurface& cells = grid(board_);
    const QPoint place = cells.visualRect(cells.model()->index(row, col)).center();
    QTest::mouseClick(cells.viewport(), Qt::LeftButton, {}, place);
    EXPECT_FALSE(hands_) << "no window opened";
  }
  QString onBoard(int col, int row) { return grid(board_).GetCellText(col, row); }

  static void repeat(PlannerWindow& window, const QString& box, const QString& count,
                     const QString& button) {
    window.findChild<QLineEdit*>(box)->setText(count);
    click(window, button);
  }

  WeekBoard board_{state_};

 private:
  void useModally(PlannerWindow& window) {
    QTimer::singleShot(0, &window, [this, &window] {
      std::exchange(hands_, {})(window);
      click(window, u"CmdEND"_qs);
    });
    window.ShowModal();
  }

  Hands hands_;
};

TEST_F(Planning, ADayIsPlannedBlockByBlockAndSeenOnTheBoardInColour) {
  clickBoard(3, 0, [](PlannerWindow& window) {
    EXPECT_EQ(window.windowTitle(), u"每日活动计划  2007年3月7日 星期三"_qs);
    doubleClick(window, u"List1"_qs, 0);
    type(window, 2, 0, u"第一章"_qs);
    type(window, 3, 0, u"2"_qs);
    grid(window).SetCurrentCell(0, 1);
    doubleClick(window, u"List1"_qs, 1);
    click(window, u"cmdSV"_qs);
  });
  EXPECT_EQ(prompts_.warnings, QStringList{u"保存完毕!"_qs});
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-07|001|跑步||0"_qs, u"2007-03-07|002|读书|第一章|2"_qs}));
  EXPECT_EQ(onBoard(3, 2), u"读书\r第一章"_qs);
  EXPECT_EQ(onBoard(3, 1), u"跑步\r"_qs);
  EXPECT_EQ(grid(board_).sheet().StyleAt(3, 2).textColour, kBlue);
}

TEST_F(Planning, ATermOfOneActivityIsPlannedAroundWhatIsTaken) {
  schedule_.plan(kToday, u"002"_qs, u"读书"_qs, u"第一章"_qs, 2)
      .plan(kToday.addDays(7), u"002"_qs, u"跑步"_qs, u"五公里"_qs, 4);
  board_.FillWeek();
  clickBoard(1, 2, [](PlannerWindow& window) {
    EXPECT_EQ(window.windowTitle(), u"项目活动计划  读书"_qs);
    repeat(window, u"Text1"_qs, u"3"_qs, u"CmdJH"_qs);
    EXPECT_EQ(grid(window).GetCellText(2, 1), u"跑步"_qs);
    EXPECT_EQ(grid(window).sheet().StyleAt(2, 1).textColour, kRed);
    type(window, 3, 3, u"复习"_qs);
    click(window, u"cmdSV"_qs);
  });
  EXPECT_EQ(prompts_.warnings, QStringList{u"保存完毕!"_qs});
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-05|002|读书|第一章|2"_qs, u"2007-03-12|002|跑步|五公里|4"_qs,
                         u"2007-03-19|002|读书|第一章|2"_qs, u"2007-03-26|002|读书|复习|2"_qs}));
  click(board_, u"Cm4"_qs);
  click(board_, u"Cm4"_qs);
  EXPECT_EQ(onBoard(1, 2), u"读书\r第一章"_qs);
}

TEST_F(Planning, AnActivitysPlanIsDeletedAndGoneFromTheBoard) {
  schedule_.plan(kToday, u"001"_qs, u"读书"_qs).plan(kToday, u"002"_qs, u"跑步"_qs);
  board_.FillWeek();
  prompts_.answers << true;
  clickBoard(1, 1, [](PlannerWindow& window) { click(window, u"CmdDEL"_qs); });
  EXPECT_EQ(prompts_.questions, QStringList{u"请认是否删除项目 读书 的全部计划 ?"_qs});
  EXPECT_EQ(onBoard(1, 1), QString());
  EXPECT_EQ(onBoard(1, 2), u"跑步\r要求"_qs);
}

TEST_F(Planning, ThePlanOfACompletedActivityOpensTheFirstOpenOne) {
  schedule_.plan(kToday, u"001"_qs, u"做完了"_qs);
  board_.FillWeek();
  clickBoard(1, 1, [](PlannerWindow& window) {
    EXPECT_EQ(window.windowTitle(), u"项目活动计划  读书"_qs);
  });
}

}  // namespace vellora
