#include "editors/memo_window.h"

#include "editor_fixture.h"
#include "schedule/memos.h"

#include <QPlainTextEdit>

namespace vellora {
namespace {

using test::kMonday;

class MemoWindowTest : public test::EditorTest {
 protected:
  MemoWindowTest() {
    schedule_.memo(kMonday, u"交报告\n给'老王'"_qs);
    open(memo_);
  }
  QPlainTextEdit& box() { return *memo_.findChild<QPlainTextEdit*>(u"Text1"_qs); }

  MemoWindow memo_{state_};
};

}  // namespace

TEST_F(MemoWindowTest, ShowsTheMemoOfThePickedDate) {
  EXPECT_EQ(memo_.windowTitle(), u"备忘录  2007年3月5日 星期一"_qs);
  EXPECT_EQ(box().toPlainText(), u"交报告\n给'老王'"_qs);
  click(u"Cm4"_qs);
  EXPECT_EQ(memo_.windowTitle(), u"备忘录  2007年3月12日 星期一"_qs);
  EXPECT_EQ(box().toPlainText(), QString());
  click(u"Cm1"_qs);
  EXPECT_EQ(box().toPlainText(), u"交报告\n给'老王'"_qs);
}

TEST_F(MemoWindowTest, StoresTheTextWithoutAMessageAndDropsItWithTheDate) {
  click(u"Cm3"_qs);
  box().setFocus();
  type(u"买票"_qs);
  press(Qt::Key_Escape);
  EXPECT_TRUE(memo_.isVisible()) << "the text is not stored yet";
  pressMnemonic(Qt::Key_U);
  EXPECT_EQ(memoOf(store_, kMonday.addDays(1)), u"买票"_qs);
  type(u"丢弃"_qs);
  click(u"Cm3"_qs);
  click(u"Cm2"_qs);
  EXPECT_EQ(box().toPlainText(), u"买票"_qs);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
  box().setFocus();
  type(u"还有"_qs);
  pressMnemonic(Qt::Key_U);
  press(Qt::Key_Escape);
  EXPECT_FALSE(memo_.isVisible());
}

TEST_F(MemoWindowTest, AFailedStoreIsToldAndKeepsTheText) {
  type(u"新"_qs);
  {
    const auto saving = otherProgramSaves();
    click(u"CmdSV"_qs);
  }
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_EQ(box().toPlainText(), u"新交报告\n给'老王'"_qs);
  EXPECT_EQ(memoOf(store_, kMonday), u"交报告\n给'老王'"_qs);
}

TEST_F(MemoWindowTest, AMemoThatCannotBeReadCannotBeOverwritten) {
  schedule_.sql(u"ALTER TABLE BW RENAME TO BW_away"_qs);
  click(u"Cm3"_qs);
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_EQ(box().toPlainText(), QString());
  EXPECT_FALSE(box().isEnabled());
  EXPECT_FALSE(memo_.findChild<QPushButton*>(u"CmdSV"_qs)->isEnabled());
  MemoWindow openedMeanwhile(state_);
  openedMeanwhile.Load();
  EXPECT_EQ(prompts_.warnings.size(), 1) << "opening says nothing";
  schedule_.sql(u"ALTER TABLE BW_away RENAME TO BW"_qs);
  click(u"Cm2"_qs);
  EXPECT_EQ(box().toPlainText(), u"交报告\n给'老王'"_qs);
  EXPECT_TRUE(box().isEnabled());
}

}  // namespace vellora
