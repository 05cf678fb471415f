#include "grid_hands.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>

namespace vellora {
namespace {

using test::clipboardText;
using test::GridHands;
using test::putOnClipboard;

class GridClipboard : public testing::Test, protected GridHands {
 protected:
  GridClipboard() : GridHands(3, 4) { grid.setEditable(true); }
  // Opens it and gives the captions that can be used.
  static QStringList contextMenu(QWidget* on) {
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            on->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(on, &asked);
    QStringList captions;
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return {};
    for (const QAction* action : menu->actions()) {
      if (action->isEnabled()) captions << action->text();
    }
    menu->close();
    return captions;
  }
  void paste() { press(Qt::Key_V, Qt::ControlModifier); }
};

TEST_F(GridClipboard, CopiesTheSelectionAsTabSeparatedTextAndAsHtml) {
  grid.SetCellText(0, 0, u"a<b"_qs);
  grid.SetCellText(1, 0, u"two\rlines"_qs);
  grid.SetCellText(0, 1, u"\"q\""_qs);
  select(0, 0, 1, 1);
  press(Qt::Key_C, Qt::ControlModifier);
  grid.SetCellText(0, 0, u"later"_qs);
  EXPECT_EQ(clipboardText(), u"a<b\t\"two\nlines\"\n\"\"\"q\"\"\"\t\n");
  const QString html = QGuiApplication::clipboard()->mimeData()->html();
  EXPECT_TRUE(html.contains(u">a&lt;b</td>"_qs)) << html.toStdString();
  EXPECT_TRUE(html.contains(u">two<br>lines</td>"_qs));
}

TEST_F(GridClipboard, TellsSpreadsheetsWhichCellsAreTexts) {
  grid.SetCellText(0, 0, u"01"_qs);
  grid.SetCellText(1, 0, u"=1+1"_qs);
  grid.SetCellText(2, 0, u"12"_qs);
  select(0, 0, 2, 0);
  press(Qt::Key_C, Qt::ControlModifier);
  const QString html = QGuiApplication::clipboard()->mimeData()->html();
  const QString text = uR"(<td sdnum="1033;0;@" style="mso-number-format:'\@'">)"_qs;
  EXPECT_TRUE(html.contains(text + u"01</td>" + text + u"=1+1</td><td>12</td>"))
      << html.toStdString();
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
  select(0, 0, 1, 2);
  paste();
  EXPECT_EQ(text(0, 0) + text(1, 2), u"休息休息");
  EXPECT_EQ(text(2, 0), QString());
}

TEST_F(GridClipboard, LeavesHiddenRowsAlone) {
  for (int row = 0; row < 4; ++row) grid.SetCellText(0, row, QString::number(row));
  grid.HideRow(0, 1);
  select(0, 0, 0, 2);
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboardText(), u"0\n2\n");
  putOnClipboard(u"a\nb\n"_qs);
  paste();
  EXPECT_EQ(text(0, 0) + text(0, 1) + text(0, 2), u"a1b");
}

TEST_F(GridClipboard, CellsOfThisProgramBringAllThatTheyHave) {
  grid.SetCellText(0, 0, u"早读"_qs);
  grid.sheet().SetCellTag(0, 0, u"A01"_qs);
  grid.SetCellColors(0, 0, kRed, kWhite);
  grid.setEntryRule([](int, int, const QString&) { return std::optional<CellEntry>(); });
  press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(text(0, 0) + grid.CellTag(0, 0), QString());
  select(0, 2, 0, 3);
  paste();
  for (const int row : {2, 3}) {
    EXPECT_EQ(text(0, row) + grid.CellTag(0, row), u"早读A01");
    EXPECT_EQ(grid.sheet().StyleAt(0, row).textColour, kRed);
  }
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text(0, 2) + grid.CellTag(0, 2), QString());
  grid.SetCellText(1, kHeadingRow, u"名称"_qs);
  grid.SetCurrentCell(1, 0);
  paste();
  EXPECT_EQ(text(1, 0), QString()) << "the tag means nothing under another heading";
}

TEST_F(GridClipboard, TextsFromOutsideLoseTheTagAndKeepTheLook) {
  for (const bool isTyped : {false, true}) {
    grid.sheet().SetCellTag(0, 0, u"key"_qs);
    grid.SetCellColors(0, 0, kRed, kWhite);
    grid.SetCurrentCell(0, 0);
    if (isTyped) {
      type("y");
      press(Qt::Key_Return);
    } else {
      putOnClipboard(u"x"_qs);
      paste();
    }
    EXPECT_EQ(text(0, 0) + grid.CellTag(0, 0), isTyped ? u"y" : u"x");
    EXPECT_EQ(grid.sheet().StyleAt(0, 0).textColour, kRed);
  }
}

TEST_F(GridClipboard, TheRuleGivesTagsAndRefusesTexts) {
  grid.SetCellText(0, 1, u"old"_qs);
  grid.sheet().SetCellTag(0, 1, u"O"_qs);
  grid.setEntryRule([](int, int, const QString& text) {
    const bool isKnown = text.startsWith(u'a');
    return isKnown ? std::optional<CellEntry>({text.toUpper(), u"T"_qs}) : std::nullopt;
  });
  QSignalSpy refused(&grid, &GridSurface::EntriesRefused);
  putOnClipboard(u"a1\nb1\nb2\n"_qs);
  paste();
  EXPECT_EQ(text(0, 0) + grid.CellTag(0, 0), u"A1T");
  EXPECT_EQ(text(0, 1) + grid.CellTag(0, 1), u"oldO");
  ASSERT_EQ(refused.count(), 1);
  EXPECT_EQ(refused[0], (QVariantList{2, u"b1"_qs}));
  grid.SetCurrentCell(0, 1);
  for (const int key : {Qt::Key_Return, Qt::Key_F3}) {
    refused.clear();
    grid.SetCurrentCell(0, 1);
    type("c");
    press(key);
    EXPECT_EQ(text(0, 1) + grid.CellTag(0, 1), u"oldO");
    EXPECT_EQ(refused.count(), 1) << key;
    EXPECT_EQ(editor(), nullptr);
  }
}

TEST_F(GridClipboard, LockedColumnsAndHeadingsStayWhateverIsDoneToTheRest) {
  grid.setFrozen(0, 1);
  grid.setColumnLocked(1, true);
  for (int row = 0; row < 2; ++row) {
    for (int col = 0; col < 3; ++col) grid.SetCellText(col, row, u"x"_qs);
  }
  const auto texts = [this]() -> QString {
    return text(0, 0) + text(1, 0) + u' ' + text(0, 1) + text(1, 1) + text(2, 1);
  };
  press(Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_Delete);
  EXPECT_EQ(texts(), u"xx x");
  putOnClipboard(u"1\t2\t3\n4\t5\t6\n"_qs);
  grid.SetCurrentCell(0, 0);
  paste();
  EXPECT_EQ(texts(), u"xx 4x6");
  for (const CellPlace& closed : {CellPlace{1, 1}, CellPlace{0, 0}}) {
    doubleClick(closed.col, closed.row);
    press(Qt::Key_F2);
    type("t");
    EXPECT_EQ(editor(), nullptr);
    const QModelIndex cell = grid.model()->index(closed.row, closed.col);
    EXPECT_FALSE(cell.flags().testFlag(Qt::ItemIsEditable));
  }
  EXPECT_EQ(texts(), u"xx 4x6");
}

TEST_F(GridClipboard, GrowsForAPasteWhereItMay) {
  grid.setGrowsOnPaste(true);
  QSignalSpy cut(&grid, &GridSurface::PasteCut);
  putOnClipboard(u"1\n2\n3\n"_qs);
  grid.SetCurrentCell(0, 3);
  paste();
  EXPECT_EQ(grid.Rows(), 6);
  EXPECT_EQ(text(0, 5), u"3");
  EXPECT_EQ(cut.count(), 0);
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(grid.Rows(), 4);
}

TEST_F(GridClipboard, ALongPasteThatIsGivenUpChangesNothing) {
  grid.setWorkRunner([](QWidget*, const std::function<void(const WorkProgress&)>& work) {
    work([](const WorkStep& step) { return step.done == 0; });
  });
  grid.setGrowsOnPaste(true);
  putOnClipboard(u"x\n"_qs.repeated(1000));
  paste();
  EXPECT_EQ(text(0, 0), QString());
  EXPECT_EQ(grid.Rows(), 4);
}

TEST_F(GridClipboard, LineBreaksComeFromTheHtmlAndTheRestFromTheText) {
  auto* data = new QMimeData;
  data->setText(u"a b\t two  blanks\n"_qs);
  data->setHtml(u"<table><tr><td>a<br>b</td><td>two blanks</td></tr></table>"_qs);
  QGuiApplication::clipboard()->setMimeData(data);
  paste();
  EXPECT_EQ(text(0, 0) + u'|' + text(1, 0), u"a\rb| two  blanks");
}

TEST_F(GridClipboard, AnEmptyClipboardIsNoHarm) {
  for (QMimeData* empty : {static_cast<QMimeData*>(nullptr), new QMimeData}) {
    QGuiApplication::clipboard()->setMimeData(empty);
    grid.SetCurrentCell(0, 0);
    paste();
    EXPECT_FALSE(contextMenu(grid.viewport()).contains(u"粘贴"_qs));
    type("x");
    paste();
    press(Qt::Key_Insert, Qt::ShiftModifier);
    contextMenu(QApplication::focusWidget());
    press(Qt::Key_Return);
    EXPECT_EQ(text(0, 0), u"x");
  }
}

}  // namespace
}  // namespace vellora
