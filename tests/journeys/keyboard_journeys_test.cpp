// What a user does in the first weeks with the planner, by keys alone.

#include "app/start_up.h"
#include "support/hands.h"
#include "support/home_folder.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

#include <QTest>

namespace vellora {
namespace {

using namespace test;

// The whole program on an empty schedule. Nothing here reaches a control but keys that are sent to
// the window in front.
class SetUpADay : public PlannerTest {
 protected:
  SetUpADay() {
    start_up_.showBoard();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&start_up_.board()));
  }
  static void inWindow(const QString& button, const std::function<void()>& work) {
    inWindowOpenedBy([&] { type(button, u" "_qs); }, work);
  }
  // Types into the controls of a window, and ends with a letter of its captions.
  static void fill(const QString& button, const QList<std::pair<QString, QString>>& controls,
                   char letter) {
    inWindow(button, [&] {
      for (const auto& [name, text] : controls) type(name, text);
      alt(letter);
    });
  }

  HomeFolder home_;
  StartUp start_up_{schedule_.folder(), prompts_, clock_};
};

// With two blocks and two activities; reading is planned for the mornings of three weeks from this
// Monday on, but for the one that is taken.
class WeekWithoutMouse : public SetUpADay {
 protected:
  WeekWithoutMouse() {
    schedule_.block(u"a"_qs, u"08:00:00"_qs, u"11:30:00"_qs, u"上午"_qs)
        .block(u"b"_qs, u"13:30:00"_qs, u"15:00:00"_qs, u"下午"_qs)
        .item(u"001"_qs, u"读书"_qs, u"2-学习"_qs)
        .item(u"002"_qs, u"跑步"_qs, u"3-运动"_qs)
        .plan(kMonday.addDays(7), u"a"_qs, u"跑步"_qs, u"五公里"_qs, 4);
    fill(u"Command2"_qs,
         {{u"List2"_qs, u"\n第一章\t2\t↑"_qs}, {u"Text1"_qs, u"↓↓↓↓↓"_qs}, {u"CmdJH"_qs, u" "_qs}},
         'S');
    EXPECT_EQ(cell(1, 1), u"读书/第一章"_qs);
  }
};

}  // namespace

TEST_F(SetUpADay, FromAnEmptyScheduleToAFullBoard) {
  fill(u"Command5"_qs, {{u"Cell1"_qs, u"13:30\t15:00\tb\t下午\t8:00\t11:30\ta\t上午\t"_qs}}, 'S');
  fill(u"Command4"_qs,
       {{u"CmdNEW"_qs, u" 001\n读书\t↓↓"_qs},
        {u"cmdOK"_qs, u" "_qs},
        {u"CmdNEW"_qs, u" \n跑步\t↓"_qs}},
       'U');
  fill(u"Command7"_qs, {{u"CmdBR"_qs, u" 第一周\n"_qs}}, 'S');
  fill(u"Command6"_qs, {{u"Text1"_qs, u"交报告"_qs}}, 'U');
  fill(u"Command1"_qs, {{u"List1"_qs, u"↓\n"_qs}}, 'S');
  EXPECT_EQ(dumpOf(store_),
            (QStringList{u"BW|2007-03-05|交报告"_qs, u"HD|001|读书|2-学习|0|16711680"_qs,
                         u"HD|002|跑步|3-运动|0|65280"_qs, u"JH|2007-03-05|a|跑步||0"_qs,
                         u"MM|2007-03-05|2007-03-11|第一周"_qs, u"SJ|a|上午|08:00:00|11:30:00"_qs,
                         u"SJ|b|下午|13:30:00|15:00:00"_qs}));
  EXPECT_EQ(row(1), u"08:00-11:30/上午|跑步/||||||"_qs);
  EXPECT_EQ(text(u"Lmm"_qs), u"第一周"_qs);
  EXPECT_TRUE(front().windowTitle().endsWith(u"交报告"_qs));
}

TEST_F(WeekWithoutMouse, IsPlannedByDayCountedAndChangedFromTheBoardsCells) {
  fill(u"Command1"_qs,
       {{u"Command2"_qs, u" "_qs}, {u"Cell1"_qs, u"↓"_qs}, {u"List1"_qs, u"↓\n五公里\t3"_qs}}, 'S');
  EXPECT_EQ(dumpOf(store_).filter(u"JH"_qs),
            QStringList({u"JH|2007-03-05|a|读书|第一章|2"_qs, u"JH|2007-03-06|b|跑步|五公里|3"_qs,
                         u"JH|2007-03-12|a|跑步|五公里|4"_qs, u"JH|2007-03-19|a|读书|第一章|2"_qs,
                         u"JH|2007-03-26|a|读书|第一章|2"_qs}));
  inWindow(u"Command3"_qs, [] {
    type(u"D2"_qs, u"\n"_qs);
    EXPECT_EQ(row(0), u"2-学习|读书|10小时30分钟|3|67.74"_qs);
  });
  tabTo(u"Cell1"_qs);
  press(Qt::Key_Home, Qt::ControlModifier);
  press(Qt::Key_Right);
  inWindowOpenedBy(
      [] { press(Qt::Key_Return); },
      [] { EXPECT_EQ(front().windowTitle(), u"每日活动计划  2007年3月5日 星期一"_qs); });
  tabTo(u"Cell1"_qs);
  prompts_.answers << true;
  inWindowOpenedBy([] { press(Qt::Key_Space); }, [] { alt('D'); });
  EXPECT_EQ(prompts_.questions, QStringList{u"请认是否删除项目 读书 的全部计划 ?"_qs});
  EXPECT_EQ(cell(1, 1) + cell(2, 2), u"跑步/五公里"_qs);
}

TEST_F(WeekWithoutMouse, IsBackedUpLostAndBroughtBack) {
  schedule_.memo(kMonday, u"带伞\r还书"_qs).memo(kMonday.addDays(1), QString());
  schedule_.weekName(kMonday, kMonday.addDays(6), u"第'1'周"_qs);
  const QStringList before = dumpOf(store_);
  inWindow(u"CmdA0"_qs, [] { alt('O'); });
  prompts_.answers << true;
  type(u"Command9"_qs, u" "_qs);
  EXPECT_EQ(cell(1, 1), QString());
  schedule_.sql(u"DELETE FROM HD"_qs).sql(u"UPDATE SJ SET SJKH='x'"_qs);
  inWindow(u"CmdA0"_qs, [] { alt('I'); });
  EXPECT_EQ(dumpOf(store_), before);
  EXPECT_EQ(cell(1, 1), u"读书/第一章"_qs);
}

}  // namespace vellora
