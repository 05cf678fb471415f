// A new user divides the day, fills the catalogue, names the weeks of a term and notes something
// for today; the week board shows all of it.

#include "keyboard_journey.h"

namespace vellora {

using SetUpADay = test::KeyboardJourney;

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
  EXPECT_EQ(cell(0, 1), u"08:00-11:30/上午"_qs);
  EXPECT_EQ(cell(1, 1), u"跑步/"_qs);
  EXPECT_EQ(cell(0, 2), u"13:30-15:00/下午"_qs);
  EXPECT_EQ(text(u"Lmm"_qs), u"第一周"_qs);
  EXPECT_TRUE(title().endsWith(u"交报告"_qs));
  pressButton(u"Cm4"_qs);
  EXPECT_EQ(text(u"Lmm"_qs), QString());
}

}  // namespace vellora
