#include "editors/time_block_editor.h"

#include "editor_fixture.h"

#include <QApplication>
#include <QClipboard>

namespace vellora {
namespace {

class TimeBlockEditorTest : public test::EditorTest {
 protected:
  TimeBlockEditorTest() {
    schedule_.block(u"a"_qs, u"08:00:00"_qs, u"09:00:00"_qs, u"一"_qs);
    open(editor_);
  }

  TimeBlockEditor editor_{state_};
};

}  // namespace

TEST_F(TimeBlockEditorTest, ShowsTheCellThatCannotBeStoredAndKeepsEverythingTyped) {
  press(Qt::Key_Down);
  typeCells({u"9:00"_qs, u"9:60"_qs, u"b"_qs, u"二"_qs});
  click(u"cmdSV"_qs);
  EXPECT_EQ(prompts_.warnings,
            QStringList(u"第 2 行的“结束时间”要填时间，例如 08:30，“9:60”不是。"_qs));
  EXPECT_EQ(grid().currentIndex().column(), 1);
  EXPECT_EQ(grid().CurrentRow(), 1);
  EXPECT_EQ(shown(3, 1), u"二"_qs);
  EXPECT_EQ(store_.open(u"SJ"_qs).count(), 1);
  type(u"10:00"_qs);
  press(Qt::Key_Return);
  click(u"cmdSV"_qs);
  EXPECT_EQ(prompts_.warnings.last(), u"保存完毕!"_qs);
  EXPECT_EQ(store_.open(u"SJ"_qs).count(), 2);
}

TEST_F(TimeBlockEditorTest, OpenDropsTypingAndEscapeDoesNot) {
  type(u"7:00"_qs);
  press(Qt::Key_Escape);
  EXPECT_EQ(shown(0, 0), u"08:00"_qs) << "Escape leaves the cell's editing";
  EXPECT_TRUE(editor_.isVisible());
  typeCells({u"7:00"_qs});
  press(Qt::Key_Escape);
  EXPECT_TRUE(editor_.isVisible());
  type(u"7:30"_qs);
  pressMnemonic(Qt::Key_O);
  EXPECT_EQ(shown(0, 0), u"08:00"_qs);
  EXPECT_EQ(shown(1, 0), u"09:00"_qs) << "not even what was still being typed";
  press(Qt::Key_Escape);
  EXPECT_FALSE(editor_.isVisible());
}

}  // namespace vellora
