// What a user does in the first weeks with the planner, by keys alone.

#include "keyboard_journey.h"
#include "support/schedule_dump.h"

namespace vellora {
namespace {

using SetUpADay = test::KeyboardJourney;

// With two blocks and two activities; reading is planned for the mornings of three weeks from this
// Monday on, but for the one that is taken.
class WeekWithoutMouse : public test::KeyboardJourney {
 protected:
  WeekWithoutMouse() {
    schedule_.block(u"a"_qs, u"08:00:00"_qs, u"11:30:00"_qs, u"上午"_qs)
        .block(u"b"_qs, u"13:30:00"_qs, u"15:00:00"_qs, u"下午"_qs)
        .item(u"001"_qs, u"读书"_qs, u"2-学习"_qs)
        .item(u"002"_qs, u"跑步"_qs, u"3-运动"_qs)
        .plan(test::kMonday.addDays(7), u"a"_qs, u"跑步"_qs, u"五公里"_qs, 4);
    inWindow(u"Command2"_qs, [] {
      tabTo(u"List2"_qs);
      type(u"\n第一章\t2"_qs);
      tabTo(u"Text1"_qs);
      press(Qt::Key_Down, {}, 5);
      EXPECT_EQ(text(u"Text1"_qs), u"3"_qs);
      tabTo(u"Cell1"_qs);
      press(Qt::Key_Home, Qt::ControlModifier);
      pressButton(u"CmdJH"_qs);
      EXPECT_EQ(cell(2, 1), u"跑步"_qs);
      alt('S');
    });
    EXPECT_EQ(cell(1, 1), u"读书/第一章"_qs);
  }
  // Every row of a table.
  QStringList rows() {
    ScheduleStore store = schedule_.store();
    return test::dumpOf(store);
  }
};

}  // namespace

TEST_F(SetUpADay, FromAnEmptyScheduleToAFullBoard) {
  inWindow(u"Command5"_qs, [] {
    tabTo(u"Cell1"_qs);
    type(u"13:30\t15:00\tb\t下午\t8:00\t11:30\ta\t上午\t"_qs);
    alt('S');
  });
  inWindow(u"Command4"_qs, [] {
    alt('N');
    type(u"001\n读书\t"_qs);
    press(Qt::Key_Down, {}, 2);
    alt('U');
    EXPECT_EQ(cell(0, 0) + cell(1, 0) + cell(2, 0), u"001读书2-学习"_qs);
    alt('N');
    EXPECT_EQ(text(u"TxtHDBH"_qs), u"002"_qs);
    type(u"\n跑步\t"_qs);
    press(Qt::Key_Down);
    alt('U');
  });
  inWindow(u"Command7"_qs, [] {
    pressButton(u"CmdBR"_qs);
    type(u"第一周\n"_qs);
    alt('S');
  });
  inWindow(u"Command6"_qs, [] {
    type(u"交报告"_qs);
    alt('U');
  });
  EXPECT_EQ(prompts_.warnings, QStringList({u"保存完毕!"_qs, u"保存完毕!"_qs}));
  EXPECT_EQ(cell(0, 1), QString()) << "the board keeps its rows until it is built anew";
  inWindow(u"Command1"_qs, [] {
    tabTo(u"List1"_qs);
    press(Qt::Key_Down);
    type(u"\n"_qs);
    alt('S');
  });
  EXPECT_EQ(cell(0, 1) + cell(1, 1), u"08:00-11:30/上午跑步/"_qs);
  EXPECT_EQ(cell(0, 2), u"13:30-15:00/下午"_qs);
  EXPECT_EQ(text(u"Lmm"_qs), u"第一周"_qs);
  EXPECT_TRUE(title().endsWith(u"交报告"_qs));
  pressButton(u"Cm4"_qs);
  EXPECT_EQ(text(u"Lmm"_qs), QString());
}

TEST_F(WeekWithoutMouse, IsPlannedByDayAndChangedFromTheBoardsCells) {
  inWindow(u"Command1"_qs, [] {
    pressButton(u"Command2"_qs);
    EXPECT_TRUE(title().endsWith(u"2007年3月6日 星期二"_qs)) << title().toStdString();
    tabTo(u"Cell1"_qs);
    press(Qt::Key_Down);
    tabTo(u"List1"_qs);
    press(Qt::Key_Down);
    type(u"\n五公里\t3"_qs);
    alt('S');
    alt('Q');
  });
  EXPECT_EQ(rows().filter(u"JH"_qs),
            QStringList({u"JH|2007-03-05|a|读书|第一章|2"_qs, u"JH|2007-03-06|b|跑步|五公里|3"_qs,
                         u"JH|2007-03-12|a|跑步|五公里|4"_qs, u"JH|2007-03-19|a|读书|第一章|2"_qs,
                         u"JH|2007-03-26|a|读书|第一章|2"_qs}));
  EXPECT_EQ(cell(2, 2), u"跑步/五公里"_qs);
  tabTo(u"Cell1"_qs);
  press(Qt::Key_Home, Qt::ControlModifier);
  press(Qt::Key_Right);
  inWindowOpenedBy([] { press(Qt::Key_Return); },
                   [] { EXPECT_EQ(title(), u"每日活动计划  2007年3月5日 星期一"_qs); });
  tabTo(u"Cell1"_qs);
  prompts_.answers << true;
  inWindowOpenedBy([] { press(Qt::Key_Space); },
                   [] {
                     EXPECT_EQ(title(), u"项目活动计划  读书"_qs);
                     alt('D');
                   });
  EXPECT_EQ(prompts_.questions, QStringList{u"请认是否删除项目 读书 的全部计划 ?"_qs});
  EXPECT_EQ(cell(1, 1) + cell(2, 2), u"跑步/五公里"_qs);
  pressButton(u"Cm4"_qs);
  EXPECT_EQ(cell(1, 1), u"跑步/五公里"_qs);
  tabTo(u"D1"_qs);
  press(Qt::Key_Up);
  EXPECT_EQ(cell(1, 0), u"03月13日/星期二"_qs) << "a day later";
}

TEST_F(WeekWithoutMouse, IsCountedPrintedAndExportedAndEndsWithANewLook) {
  inWindow(u"Command3"_qs, [] {
    tabTo(u"D2"_qs);
    press(Qt::Key_Return);
    EXPECT_EQ(cell(1, 0) + u' ' + cell(2, 0) + u' ' + cell(3, 0), u"读书 10小时30分钟 3"_qs);
    tabTo(u"Cell1"_qs);
    press(Qt::Key_F7);
    press(Qt::Key_F8);
    inWindowOpenedBy([] { press(Qt::Key_F3); }, [] { EXPECT_FALSE(title().isEmpty()); });
    alt('Q');
  });
  EXPECT_EQ(home_.names(), (QStringList{u"统计分析.HTM"_qs, u"统计分析.xls"_qs}));
  inWindow(u"CmdA1"_qs, [] { EXPECT_FALSE(title().isEmpty()); });
  prompts_.files << QStringLiteral(SKIN_DIR "/KTZ2.SKN");
  inWindow(u"Command98"_qs, [] { pressButton(u"Command1"_qs); });
  EXPECT_EQ(front().palette().color(QPalette::Window), QColor(Qt::black));
  inWindow(u"Command8"_qs, [] { alt('Q'); });
  pressButton(u"Command99"_qs);
  EXPECT_FALSE(start_up_.board().isVisible());
}

TEST_F(WeekWithoutMouse, IsBackedUpLostAndBroughtBack) {
  schedule_.memo(test::kMonday, u"带伞\r还书"_qs).memo(test::kMonday.addDays(1), QString());
  schedule_.weekName(test::kMonday, test::kMonday.addDays(6), u"第'1'周"_qs);
  const QStringList before = rows();
  inWindow(u"CmdA0"_qs, [] { alt('O'); });
  prompts_.answers << true;
  pressButton(u"Command9"_qs);
  EXPECT_EQ(cell(1, 1), QString());
  schedule_.sql(u"DELETE FROM HD"_qs).sql(u"UPDATE SJ SET SJKH='x'"_qs);
  ASSERT_EQ(rows().size(), 2);
  inWindow(u"CmdA0"_qs, [] { alt('I'); });
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(cell(1, 1), u"读书/第一章"_qs);
}

}  // namespace vellora
