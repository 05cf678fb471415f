#include "grid_hands.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QShortcut>

namespace vellora {
namespace {

using test::GridHands;
using test::putOnClipboard;

// Three columns and five rows, one cell filled, and what the user does to them as a line of steps:
// a cell to go to (1,2), a key (Ctrl+C), a text that is typed ('new), the mouse (click:1,2,
// double:, shift:, right:, drag:0,0-1,2), an input method (compose:, commit:), the clipboard
// (clip:a→b¶c).
class GridSteps : public testing::Test, protected GridHands {
 protected:
  GridSteps() : GridHands(3, 5) {
    grid.setEditable(true);
    grid.SetCellText(0, 0, u"旧"_qs);
    grid.sheet().SetCellTag(0, 0, u"K"_qs);
    grid.clearUndo();
    QObject::connect(&grid, &GridSurface::CellEntered, &grid,
                     [this](int left, int row) { moves.emplace_back(left, row); });
  }
  void play(const QString& steps) {
    for (const QString& step : steps.split(u' ', Qt::SkipEmptyParts)) {
      const QString what = step.section(u':', 0, 0);
      const QString with = step.section(u':', 1);
      const QStringList cells = (with.isEmpty() ? step : with).split(u'-');
      const CellPlace first{cells[0].section(u',', 0, 0).toInt(),
                            cells[0].section(u',', 1).toInt()};
      if (step.startsWith(u'\'')) {
        type(step.mid(1).toLatin1().constData());
      } else if (what == u"click") {
        click(first.col, first.row);
      } else if (what == u"shift") {
        click(first.col, first.row, Qt::ShiftModifier);
      } else if (what == u"double") {
        doubleClick(first.col, first.row);
      } else if (what == u"right") {
        QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, centre(first.col, first.row));
      } else if (what == u"drag") {
        const QString to = cells.value(1);
        drag(centre(first.col, first.row),
             centre(to.section(u',', 0, 0).toInt(), to.section(u',', 1).toInt()));
      } else if (what == u"compose" || what == u"commit") {
        QInputMethodEvent event(what == u"compose" ? with : QString(), {});
        if (what == u"commit") event.setCommitString(with);
        QApplication::sendEvent(&grid, &event);
      } else if (what == u"clip") {
        putOnClipboard(QString(with).replace(u'→', u'\t').replace(u'¶', u'\n'));
      } else if (step.contains(u',')) {
        grid.SetCurrentCell(first.col, first.row);
      } else {
        const QKeyCombination key = QKeySequence::fromString(step)[0];
        press(key.key(), key.keyboardModifiers());
      }
    }
  }
  // The filled cells with their tags, the current one, and what is out of the ordinary.
  QString state() {
    settle();
    QStringList parts;
    for (int row = 0; row < grid.Rows(); ++row) {
      for (int col = 0; col < grid.Cols(); ++col) {
        const QString tag = grid.CellTag(col, row);
        if (text(col, row).isEmpty() && tag.isEmpty()) continue;
        parts << u"%1,%2=%3"_qs.arg(col).arg(row).arg(text(col, row).replace(u'\r', u'/')) +
                     (tag.isEmpty() ? QString() : u'#' + tag);
      }
    }
    parts << u"@%1,%2"_qs.arg(current().col).arg(current().row);
    const auto selected = grid.selectionModel()->selectedIndexes().size();
    if (selected > 1) parts << u"[%1]"_qs.arg(selected);
    if (grid.Rows() != 5) parts << u"rows:%1"_qs.arg(grid.Rows());
    if (editor()) parts << u"open"_qs;
    return parts.join(u' ');
  }

  using Moves = std::vector<std::pair<int, int>>;
  Moves moves;
};

struct Step {
  const char* what;
  QString steps;
  QString state;
};

}  // namespace

TEST_F(GridSteps, LeadWhereASpreadsheetUserExpects) {
  const Step cases[]{
      {"typing replaces", u"'new Return"_qs, u"0,0=new @0,1"_qs},
      {"Enter keeps and goes down", u"1,2 'x Return"_qs, u"0,0=旧#K 1,2=x @1,3"_qs},
      {"Shift+Enter goes up", u"1,2 'x Shift+Return"_qs, u"0,0=旧#K 1,2=x @1,1"_qs},
      {"Enter of the key pad", u"1,2 'x Num+Enter"_qs, u"0,0=旧#K 1,2=x @1,3"_qs},
      {"Tab goes right", u"1,2 'x Tab"_qs, u"0,0=旧#K 1,2=x @2,2"_qs},
      {"Backtab goes left", u"1,2 'x Shift+Backtab"_qs, u"0,0=旧#K 1,2=x @0,2"_qs},
      {"F2 adds", u"F2 '! Return"_qs, u"0,0=旧! @0,1"_qs},
      {"Escape keeps the old text", u"'lost Escape"_qs, u"0,0=旧#K @0,0"_qs},
      {"whatever was pressed meanwhile", u"'a F3 'b CapsLock Escape"_qs, u"0,0=旧#K @0,0"_qs},
      {"Alt+Enter is a line break", u"'a Alt+Return 'b Return"_qs, u"0,0=a/b @0,1"_qs},
      {"a click elsewhere keeps the text", u"'typed click:2,3"_qs, u"0,0=typed @2,3"_qs},
      {"a double click opens", u"double:0,0 'n Return"_qs, u"0,0=旧n @0,1"_qs},
      {"Delete empties the selection", u"1,1 'b Return 0,0 shift:1,1 Del"_qs, u"@0,0 [4]"_qs},
      {"so does Backspace", u"1,1 'b Return 0,0 shift:1,1 Backspace"_qs, u"@0,0 [4]"_qs},
      {"no first character is lost", u"compose:zhong commit:中 Return"_qs, u"0,0=中 @0,1"_qs},
      {"a composition given up", u"compose:zhong commit: Return"_qs, u"0,0=旧#K @0,1"_qs},
      {"and by Escape", u"compose:zhong Escape"_qs, u"0,0=旧#K @0,0"_qs},
      {"Shift selects", u"Shift+Down Shift+Right Shift+Right Shift+Left"_qs,
       u"0,0=旧#K @0,0 [4]"_qs},
      {"Shift and click too", u"Shift+Down shift:2,2"_qs, u"0,0=旧#K @0,0 [9]"_qs},
      {"an arrow ends it", u"shift:2,2 Down"_qs, u"0,0=旧#K @0,1"_qs},
      {"dragging selects from where it began", u"drag:2,3-1,1"_qs, u"0,0=旧#K @2,3 [6]"_qs},
      {"a right click keeps a selection", u"shift:1,1 right:1,1"_qs, u"0,0=旧#K @0,0 [4]"_qs},
      {"that it hits", u"shift:1,1 right:2,3"_qs, u"0,0=旧#K @2,3"_qs},
      {"outside the sheet is nowhere", u"0,5"_qs, u"0,0=旧#K @-1,-1"_qs},
  };
  for (const Step& c : cases) {
    SCOPED_TRACE(c.what);
    grid.sheet() = Sheet();
    grid.SetCols(3);
    grid.SetRows(5);
    grid.SetCellText(0, 0, u"旧"_qs);
    grid.sheet().SetCellTag(0, 0, u"K"_qs);
    grid.Redraw();
    play(u"0,0 "_qs + c.steps);
    EXPECT_EQ(state(), c.state);
  }
}

TEST_F(GridSteps, CutCopyAndPasteAsSpreadsheetsDo) {
  grid.setColumnLocked(2, true);
  const Step steps[]{
      {"cut empties", u"Ctrl+X"_qs, u"@0,0"_qs},
      {"and brings all back", u"0,1 Ctrl+V"_qs, u"0,1=旧#K @0,1"_qs},
      {"over a selection too", u"shift:0,2 Ctrl+V"_qs, u"0,1=旧#K 0,2=旧#K @0,1 [2]"_qs},
      {"one step of undo", u"Ctrl+Z"_qs, u"0,1=旧#K @0,1"_qs},
      {"texts lose the tag", u"clip:a Ctrl+V"_qs, u"0,1=a @0,1"_qs},
      {"rows and columns", u"0,2 clip:1→\"2¶2\"¶3→4¶ Ctrl+V"_qs,
       u"0,1=a 0,2=1 1,2=2/2 0,3=3 1,3=4 @0,2"_qs},
      {"a closed column stays", u"1,0 clip:x→y Ctrl+V"_qs,
       u"1,0=x 0,1=a 0,2=1 1,2=2/2 0,3=3 1,3=4 @1,0"_qs},
      {"nothing grows", u"0,4 clip:u¶v Ctrl+V"_qs,
       u"1,0=x 0,1=a 0,2=1 1,2=2/2 0,3=3 1,3=4 0,4=u @0,4"_qs},
      {"an empty clipboard is no harm", u"clip: Ctrl+V 'z Ctrl+V Shift+Ins Return"_qs,
       u"1,0=x 0,1=a 0,2=1 1,2=2/2 0,3=3 1,3=4 0,4=z @0,4"_qs},
  };
  QSignalSpy cut(&grid, &GridSurface::PasteCut);
  for (const Step& c : steps) {
    SCOPED_TRACE(c.what);
    play(c.steps);
    EXPECT_EQ(state(), c.state);
  }
  ASSERT_EQ(cut.count(), 1);
  EXPECT_EQ(cut[0], (QVariantList{1, 0})) << "rows and columns without room";
  grid.setGrowsOnPaste(true);
  play(u"0,4 clip:u¶v Ctrl+V"_qs);
  EXPECT_EQ(grid.Rows(), 6);
  play(u"Ctrl+Z"_qs);
  EXPECT_EQ(grid.Rows(), 5);
  grid.HideRow(0, 2);
  play(u"0,1 shift:0,3 Ctrl+C"_qs);
  EXPECT_EQ(test::clipboardText(), u"a\n3\n");
  play(u"clip:r¶s Ctrl+V"_qs);
  EXPECT_EQ(text(0, 1) + text(0, 2) + text(0, 3), u"r1s") << "a hidden row stays";
}

TEST_F(GridSteps, UndoAndDoAgain) {
  const Step steps[]{
      {"three changes", u"'a Return clip:b→c Ctrl+V 0,0 Del"_qs, u"0,1=b 1,1=c @0,0"_qs},
      {"and back", u"Ctrl+Z"_qs, u"0,0=a 0,1=b 1,1=c @0,0"_qs},
      {"at the place", u"2,4 Ctrl+Z"_qs, u"0,0=a @0,1"_qs},
      {"to the first", u"Ctrl+Z"_qs, u"0,0=旧#K @0,0"_qs},
      {"no further", u"Ctrl+Z"_qs, u"0,0=旧#K @0,0"_qs},
      {"again", u"Ctrl+Y Ctrl+Y Ctrl+Y Ctrl+Y"_qs, u"0,1=b 1,1=c @0,0"_qs},
      {"one entry is one step", u"'a F3 'b Ctrl+J Return Ctrl+Z"_qs, u"0,1=b 1,1=c @0,0"_qs},
      {"a new one ends what can be done again", u"2,2 'n Return Ctrl+Y Ctrl+Y"_qs,
       u"0,1=b 1,1=c 2,2=n @2,3"_qs},
  };
  for (const Step& c : steps) {
    SCOPED_TRACE(c.what);
    play(c.steps);
    EXPECT_EQ(state(), c.state);
  }
  grid.horizontalHeader()->resizeSection(1, 133);
  play(u"Ctrl+Z"_qs);
  EXPECT_EQ(grid.columnWidth(1), 133) << "a width stays as it was dragged";
  {
    const UndoStep step(grid, u"追加"_qs);
    grid.InsertRows(1, 2);
    grid.SetCellText(0, 1, u"new"_qs);
  }
  play(u"Ctrl+Z"_qs);
  EXPECT_EQ(grid.Rows(), 5);
  play(u"Ctrl+Y"_qs);
  EXPECT_EQ(text(0, 1) + text(0, 3), u"newb");
  grid.DeleteRows(0, 1);
  play(u"Ctrl+Z"_qs);
  EXPECT_EQ(grid.Rows(), 6) << "a change of the program is no step of the user";
}

TEST_F(GridSteps, HandlersMayChangeTheSheetInAnswer) {
  QObject::connect(&grid, &GridSurface::CellEditStart, &grid, [this](int col, int row) {
    if (col == 1 && text(col, row).isEmpty()) grid.SetCellText(col, row, u"2007-03-05"_qs);
  });
  QObject::connect(&grid, &GridSurface::CellEntered, &grid, [this](int left, int row) {
    if (row == grid.Rows() - 1) grid.SetRows(grid.Rows() + 1);
    if (left == 3 && text(0, left).isEmpty()) grid.DeleteRows(left, 1);
  });
  QSignalSpy started(&grid, &GridSurface::CellEditStart);
  play(u"double:1,1 Return"_qs);
  EXPECT_EQ(text(1, 1), u"2007-03-05");
  EXPECT_EQ(started.count(), 1) << "once per editing";
  play(u"2,3 'x Return"_qs);
  EXPECT_EQ(grid.Rows(), 5) << "one row more at the end, and the empty one that was left is gone";
  EXPECT_EQ(grid.CurrentRow(), 3);
  QObject::connect(&grid, &GridSurface::RowDuplicate, &grid,
                   [this](int row) { grid.InsertRows(row + 1, 1); });
  play(u"0,0 Ctrl+D"_qs);
  EXPECT_EQ(grid.Rows(), 5);
  play(u"Ctrl+Z"_qs);
  EXPECT_EQ(grid.Rows(), 4);
  play(u"'half"_qs);
  grid.SetCellText(2, 1, u"new"_qs);
  grid.Redraw();
  settle();
  play(u"'way Return"_qs);
  EXPECT_EQ(text(0, 0), u"halfway");
}

TEST_F(GridSteps, TheRuleGivesTagsAndRefusesTexts) {
  grid.setEntryRule([](int, int, const QString& text) {
    const bool isKnown = text.startsWith(u'a');
    return isKnown ? std::optional<CellEntry>({text.toUpper(), u"T"_qs}) : std::nullopt;
  });
  QSignalSpy refused(&grid, &GridSurface::EntriesRefused);
  play(u"1,0 clip:a1¶b1¶b2 Ctrl+V"_qs);
  EXPECT_EQ(state(), u"0,0=旧#K 1,0=A1#T @1,0");
  ASSERT_EQ(refused.count(), 1);
  EXPECT_EQ(refused[0], (QVariantList{2, u"b1"_qs}));
  for (const QString& end : {u"Return"_qs, u"F3"_qs}) {
    play(u"0,0 'c "_qs + end);
    EXPECT_EQ(text(0, 0) + grid.CellTag(0, 0), u"旧K");
    EXPECT_EQ(editor(), nullptr);
  }
  EXPECT_EQ(refused.count(), 3);
  grid.SetCellText(1, kHeadingRow, u"名称"_qs);
  play(u"0,0 Ctrl+C 0,1 Ctrl+V 1,1 Ctrl+V"_qs);
  EXPECT_EQ(text(0, 1) + grid.CellTag(0, 1), u"旧K") << "what is known is not asked about";
  EXPECT_EQ(text(1, 1), QString()) << "a tag means nothing under another heading";
  play(u"0,0 Del"_qs);
  EXPECT_EQ(text(0, 0), QString()) << "no rule keeps a cell from being emptied";
  grid.setWorkRunner([](QWidget*, const std::function<void(const WorkProgress&)>& work) {
    work([](const WorkStep& step) { return step.done == 0; });
  });
  grid.setGrowsOnPaste(true);
  putOnClipboard(u"a\n"_qs.repeated(1000));
  play(u"2,0 Ctrl+V"_qs);
  EXPECT_EQ(text(2, 0), QString()) << "a long paste that is given up";
  EXPECT_EQ(grid.Rows(), 5);
}

TEST_F(GridSteps, ClosedCellsStayWhateverIsDone) {
  grid.setFrozen(0, 1);
  play(u"0,1 'x Return Ctrl+A Del clip:1→2¶3→4 0,0 Ctrl+V double:0,0 F2 't"_qs);
  EXPECT_EQ(state(), u"0,0=旧#K 0,1=3 1,1=4 @0,0") << "a heading";
  grid.setEditable(false);
  QSignalSpy activated(&grid, &GridSurface::CellActivated);
  play(u"1,2 'x F2 Del double:0,0 Ctrl+V 1,2 Return Space"_qs);
  EXPECT_EQ(state(), u"0,0=旧#K 0,1=3 1,1=4 @1,2");
  EXPECT_EQ(activated.takeLast(), (QVariantList{1, 2}));
}

TEST_F(GridSteps, OnlyALeftClickOnOneCellCounts) {
  QSignalSpy clicks(&grid, &GridSurface::CellClick);
  play(u"drag:0,0-1,2 right:1,1 shift:1,1"_qs);
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(600, 380));
  EXPECT_EQ(clicks.count(), 0);
  play(u"double:2,3"_qs);
  ASSERT_EQ(clicks.count(), 1);
  EXPECT_EQ(clicks[0], (QVariantList{2, 3}));
  play(u"Escape click:1,1"_qs);
  QFocusEvent leave(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&grid, &leave);
  for (const CellPlace& place : {CellPlace{1, 1}, {2, 2}}) {
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, centre(place.col, place.row));
  }
  EXPECT_EQ(clicks.count(), 2) << "the other halves of double clicks began in another window";
  EXPECT_EQ(editor(), nullptr);
  QObject::connect(&grid, &GridSurface::CellEditStart, &grid, [this] { grid.DeleteRows(3, 2); });
  play(u"double:1,4"_qs);
  EXPECT_EQ(editor(), nullptr) << "the row is gone before it opens";
}

TEST_F(GridSteps, TheWindowHearsOfKeysAfterTheTextIsInItsCell) {
  QStringList seen;
  QObject::connect(&grid, &GridSurface::GridKeyDown, &grid, [&](QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) seen << u"escape"_qs;
    if (event->key() == Qt::Key_F3 || event->key() == Qt::Key_J) seen << text(0, 0);
    if (event->key() == Qt::Key_Delete) event->accept();
  });
  QShortcut close(Qt::Key_Escape, &grid);
  QObject::connect(&close, &QShortcut::activated, &grid, [&] { seen << u"shortcut"_qs; });
  play(u"Del 'x Escape compose:zhong"_qs);
  QTest::keyClick(&grid, Qt::Key_Escape);
  EXPECT_EQ(state(), u"0,0=旧#K @0,0");
  EXPECT_EQ(seen, QStringList());
  play(u"'a F3 'b Ctrl+J 'c"_qs);
  EXPECT_EQ(seen, (QStringList{u"a"_qs, u"ab"_qs}));
  QKeyEvent letter(QEvent::ShortcutOverride, Qt::Key_S, Qt::AltModifier);
  QApplication::sendEvent(editor(), &letter);
  EXPECT_EQ(text(0, 0), u"abc") << "before a button is pressed by its letter";
}

TEST_F(GridSteps, TabLeavesTheGridAtItsEndWithCtrlAndWhereNothingCanBeTyped) {
  QWidget window;
  auto* next = new QLineEdit(&window);
  grid.setParent(&window);
  QWidget::setTabOrder(&grid, next);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  grid.show();
  for (const QString& steps : {u"1,4 Tab Tab"_qs, u"0,1 'x Ctrl+Tab"_qs, u"0,0 Tab"_qs}) {
    grid.setFocus();
    grid.setEditable(!steps.startsWith(u"0,0"));
    play(steps);
    EXPECT_TRUE(next->hasFocus()) << steps.toStdString();
  }
  EXPECT_EQ(text(0, 1), u"x");
  grid.setParent(nullptr);
}

TEST_F(GridSteps, ARowIsEnteredOnceAndGoesWhereItsRowGoes) {
  play(u"Down Right click:2,3 0,0"_qs);
  EXPECT_EQ(moves, (Moves{{0, 1}, {1, 3}, {3, 0}}));
  play(u"1,3"_qs);
  moves.clear();
  grid.InsertRows(1, 2);
  EXPECT_EQ(current(), (CellPlace{1, 5}));
  grid.DeleteRows(0, 1);
  grid.DeleteRows(4, 1);
  EXPECT_EQ(current(), (CellPlace{1, 4})) << "the next row moves up";
  EXPECT_EQ(moves, Moves());
  grid.sheet().SetRows(2);
  EXPECT_EQ(grid.CurrentRow(), -1) << "rules shortened the sheet behind the grid's back";
  grid.Redraw();
  EXPECT_EQ(moves, (Moves{{4, -1}}));
  grid.sheet().SetRows(9);
  grid.viewport()->update();
  settle();
  EXPECT_EQ(grid.model()->rowCount(), 9);
}

}  // namespace vellora
