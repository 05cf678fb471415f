#include "editors/week_name_editor.h"

#include "editor_fixture.h"
#include "shell/date_picker.h"

namespace vellora {
namespace {

class WeekNameEditorTest : public test::EditorTest {
 protected:
  WeekNameEditor editor_{state_};
};

}  // namespace

TEST_F(WeekNameEditorTest, FillsWeeksAndCarriesANameDownThem) {
  open(editor_);
  click(u"CmdBR"_qs);
  EXPECT_EQ(shown(0, 0), u"2007-03-05"_qs);
  EXPECT_EQ(grid().currentIndex().column(), 2);
  type(u"开学"_qs);
  press(Qt::Key_Return);
  press(Qt::Key_Up);
  click(u"CmdLX"_qs);
  EXPECT_EQ(grid().CurrentRow(), 10);
  EXPECT_EQ(shown(1, 10), u"2007-05-20"_qs);
  EXPECT_EQ(shown(2, 10), QString()) << "only the user's own moves carry a name";
  grid().SetCurrentCell(2, 0);
  press(Qt::Key_Down);
  press(Qt::Key_Down);
  EXPECT_EQ(shown(2, 2), u"开学"_qs);
  click(u"cmdSV"_qs);
  EXPECT_EQ(prompts_.warnings, QStringList(u"保存完毕!"_qs));
  EXPECT_EQ(store_.open(u"MM"_qs).count(), 3);
}

TEST_F(WeekNameEditorTest, AnEmptyRowAlwaysFollowsTheList) {
  schedule_.weekName(test::kMonday, test::kMonday.addDays(6), u"第一周"_qs);
  open(editor_);
  EXPECT_EQ(grid().Rows(), 2);
  EXPECT_EQ(shown(2, 1), QString()) << "opening carries nothing";
  press(Qt::Key_Down);
  EXPECT_EQ(grid().Rows(), 3);
  EXPECT_EQ(grid().CurrentRow(), 1);
  EXPECT_EQ(shown(2, 1), u"第一周"_qs);
  press(Qt::Key_Escape);
  EXPECT_FALSE(editor_.isVisible()) << "nothing was typed";
}

TEST_F(WeekNameEditorTest, AWeekThatCannotBeContinuedIsTold) {
  open(editor_);
  type(u"三月"_qs);
  press(Qt::Key_Return);
  press(Qt::Key_Up);
  click(u"CmdLX"_qs);
  EXPECT_EQ(prompts_.warnings,
            QStringList(u"第 1 行的“开始时间”要填日期，例如 2007-03-05，“三月”不是。"_qs));
  EXPECT_EQ(shown(0, 1), QString());
}

}  // namespace vellora
