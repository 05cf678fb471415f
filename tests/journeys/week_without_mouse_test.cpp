// A week is planned, looked at, printed, exported, backed up and brought back by keys alone.

#include "keyboard_journey.h"
#include "support/home_folder.h"

namespace vellora {
namespace {

// With two blocks and two activities to plan.
class WeekWithoutMouse : public test::KeyboardJourney {
 protected:
  WeekWithoutMouse() {
    schedule_.block(u"a"_qs, u"08:00:00"_qs, u"11:30:00"_qs, u"上午"_qs)
        .block(u"b"_qs, u"13:30:00"_qs, u"15:00:00"_qs, u"下午"_qs)
        .item(u"001"_qs, u"读书"_qs, u"2-学习"_qs)
        .item(u"002"_qs, u"跑步"_qs, u"3-运动"_qs);
  }

  // Reads in the mornings of three weeks, from this Monday on.
  void planReading() {
    inWindow(u"Command2"_qs, [] {
      tabTo(u"List2"_qs);
      type(u"\n第一章\t2"_qs);
      tabTo(u"Text1"_qs);
      press(Qt::Key_Down, {}, 6);
      EXPECT_EQ(text(u"Text1"_qs), u"2"_qs);
      tabTo(u"Cell1"_qs);
      press(Qt::Key_Home, Qt::ControlModifier);
      pressButton(u"CmdJH"_qs);
      alt('S');
    });
    EXPECT_EQ(prompts_.warnings, QStringList{u"保存完毕!"_qs});
    prompts_.warnings.clear();
  }

  test::HomeFolder home_;
};

}  // namespace

TEST_F(WeekWithoutMouse, IsPlannedByActivityAndByDay) {
  planReading();
  EXPECT_EQ(cell(1, 1), u"读书/第一章"_qs);
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
  EXPECT_EQ(cell(2, 2), u"跑步/五公里"_qs);
  for (int week = 0; week < 2; ++week) pressButton(u"Cm4"_qs);
  EXPECT_EQ(cell(1, 1), u"读书/第一章"_qs);
  tabTo(u"D1"_qs);
  press(Qt::Key_Up);
  EXPECT_EQ(cell(1, 0), u"03月20日/星期二"_qs) << "a day later";
}

TEST_F(WeekWithoutMouse, IsChangedFromTheBoardsCells) {
  planReading();
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
  EXPECT_EQ(prompts_.questions.size(), 1);
  EXPECT_EQ(cell(1, 1), QString());
}

TEST_F(WeekWithoutMouse, IsCountedPrintedAndExported) {
  planReading();
  inWindow(u"Command3"_qs, [this] {
    tabTo(u"D2"_qs);
    press(Qt::Key_Return);
    EXPECT_EQ(cell(1, 0) + u' ' + cell(2, 0) + u' ' + cell(3, 0), u"读书 10小时30分钟 3"_qs);
    tabTo(u"Cell1"_qs);
    press(Qt::Key_F7);
    press(Qt::Key_F8);
    EXPECT_EQ(prompts_.informed,
              (QStringList{u"\\统计分析.HTM已保存！"_qs, u"\\统计分析.xls已保存！"_qs}));
    inWindowOpenedBy([] { press(Qt::Key_F3); }, [] { EXPECT_FALSE(title().isEmpty()); });
    alt('Q');
  });
  EXPECT_EQ(home_.names(), (QStringList{u"统计分析.HTM"_qs, u"统计分析.xls"_qs}));
  inWindow(u"CmdA1"_qs, [] { EXPECT_FALSE(title().isEmpty()); });
}

TEST_F(WeekWithoutMouse, IsBackedUpClearedAndBroughtBack) {
  planReading();
  inWindow(u"CmdA0"_qs, [] { alt('O'); });
  prompts_.answers << true;
  pressButton(u"Command9"_qs);
  EXPECT_EQ(cell(1, 1), QString());
  inWindow(u"CmdA0"_qs, [] { alt('I'); });
  EXPECT_EQ(cell(1, 1), u"读书/第一章"_qs);
  EXPECT_EQ(prompts_.warnings, (QStringList{u"备份已正确完成, 共 7 条记录 ！"_qs,
                                            u"恢复已正确完成, 共 7 条记录！"_qs}));
}

TEST_F(WeekWithoutMouse, EndsWithANewLookAndTheLastCommand) {
  const QString skin = QStringLiteral(SKIN_DIR "/KTZ2.SKN");
  prompts_.files << skin;
  inWindow(u"Command98"_qs, [] {
    pressButton(u"Command1"_qs);
    pressButton(u"Command2"_qs);
  });
  EXPECT_EQ(start_up_.state().SkinPath, skin);
  EXPECT_EQ(front().palette().color(QPalette::Window), QColor(Qt::black));
  inWindow(u"Command8"_qs, [] { alt('Q'); });
  pressButton(u"Command99"_qs);
  EXPECT_FALSE(start_up_.board().isVisible());
}

}  // namespace vellora
