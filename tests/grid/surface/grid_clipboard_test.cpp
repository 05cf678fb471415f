#include "grid_hands.h"

#include <QMimeData>

namespace vellora {
namespace {

using test::clipboardText;
using test::GridHands;
using test::putOnClipboard;

class GridClipboard : public testing::Test, protected GridHands {
 protected:
  GridClipboard() : GridHands(3, 4) { grid.setEditable(true); }
  void paste() { press(Qt::Key_V, Qt::ControlModifier); }
};

TEST_F(GridClipboard, CopiesTheSelectionAsTabSeparatedTextAndAsHtml) {
  grid.SetCellText(0, 0, u"a<b"_qs);
  grid.SetCellText(1, 0, u"two\rlines"_qs);
  grid.SetCellText(0, 1, u"\"q\""_qs);
  grid.SelectRange(0, 0, 1, 1);
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboardText(), u"a<b\t\"two\nlines\"\n\"\"\"q\"\"\"\t\n");
  const QString html = QGuiApplication::clipboard()->mimeData()->html();
  EXPECT_TRUE(html.contains(u"<td>a&lt;b</td><td>two<br>lines</td>"_qs)) << html.toStdString();
}

TEST_F(GridClipboard, CutEmptiesWhatItCopied) {
  grid.SetCellText(0, 0, u"x"_qs);
  press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(clipboardText(), u"x\n");
  EXPECT_EQ(text(0, 0), QString());
}

TEST_F(GridClipboard, PastesRowsAndColumnsFromTheCurrentCellOn) {
  putOnClipboard(u"1\t\"2\r\n2\"\r\n3\t4\r\n"_qs);
  grid.SetCurrentCell(1, 1);
  paste();
  EXPECT_EQ(text(1, 1), u"1");
  EXPECT_EQ(text(2, 1), u"2\r2");
  EXPECT_EQ(text(1, 2) + text(2, 2), u"34");
  EXPECT_EQ(text(1, 3), QString());
}

TEST_F(GridClipboard, SaysHowMuchOfAPasteHadNoRoom) {
  QSignalSpy cut(&grid, &GridSurface::PasteCut);
  putOnClipboard(u"1\t2\t3\n4\t5\t6\n7\t8\t9\n"_qs);
  grid.SetCurrentCell(1, 2);
  paste();
  EXPECT_EQ(text(1, 2) + text(2, 3), u"15");
  ASSERT_EQ(cut.count(), 1);
  EXPECT_EQ(cut[0], (QVariantList{1, 1}));
  EXPECT_EQ(grid.Rows(), 4);
}

TEST_F(GridClipboard, OneTextFillsTheWholeSelection) {
  putOnClipboard(u"休息\n"_qs);
  grid.SelectRange(0, 0, 1, 2);
  paste();
  EXPECT_EQ(text(0, 0) + text(1, 2), u"休息休息");
  EXPECT_EQ(text(2, 0), QString());
}

TEST_F(GridClipboard, LeavesHiddenRowsAlone) {
  for (int row = 0; row < 4; ++row) grid.SetCellText(0, row, QString::number(row));
  grid.HideRow(0, 1);
  grid.SelectRange(0, 0, 0, 2);
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboardText(), u"0\n2\n");
  putOnClipboard(u"a\nb\n"_qs);
  paste();
  EXPECT_EQ(text(0, 0) + text(0, 1) + text(0, 2), u"a1b");
}

TEST_F(GridClipboard, KeepsTagsAndLooksOfTheCellsPastedInto) {
  grid.SetCellTag(0, 0, u"key"_qs);
  putOnClipboard(u"x"_qs);
  paste();
  EXPECT_EQ(text(0, 0) + grid.CellTag(0, 0), u"xkey");
}

TEST_F(GridClipboard, TheProgramsOwnCopyDoesNotTouchTheClipboard) {
  putOnClipboard(u"user"_qs);
  grid.SetCellText(0, 0, u"x"_qs);
  grid.CopySelection();
  grid.SetCellText(0, 0, u"later"_qs);
  grid.PasteAtCell(1, 3, 0);
  EXPECT_EQ(text(1, 3), u"x");
  EXPECT_EQ(clipboardText(), u"user");
  grid.EndCopy();
  grid.PasteAtCell(2, 3, 0);
  EXPECT_EQ(text(2, 3), QString());
}

}  // namespace
}  // namespace vellora
