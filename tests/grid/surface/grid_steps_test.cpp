#include "grid/surface/clipboard_text.h"
#include "grid_hands.h"

#include <QMimeData>

namespace vellora {

TEST_F(GridSteps, LeadWhereASpreadsheetUserExpects) {
  const Step steps[]{
      {"typing replaces", "'new Return", "0,0=new @0,1"},
      {"Tab goes right", "1,2 'x Tab", "1,2=x @2,2"},
      {"F2 adds", "F2 '! Return", "0,0=旧! @0,1"},
      {"Escape keeps the old text", "'a F3 'b CapsLock Escape Ctrl+Y", "@0,0"},
      {"Alt+Enter is a line break", "'a Alt+Return 'b Return", "0,0=a/b @0,1"},
      {"a click elsewhere keeps the text", "'typed click:2,3", "0,0=typed @2,3"},
      {"a double click opens", "double:0,0 'n Return", "0,0=旧n @0,1"},
      {"Delete empties the selection", "1,1 'b Return 0,0 shift:1,1 Del", "0,0= @0,0 [4]"},
      {"no first character is lost", "compose:zhong commit:中 Return", "0,0=中 @0,1"},
      {"a composition given up", "compose:zhong commit: Return", "@0,1"},
      {"Shift selects", "Shift+Down Shift+Right Shift+Right Shift+Left", "@0,0 [4]"},
      {"Shift and click too", "Shift+Down shift:2,2", "@0,0 [9]"},
      {"an arrow ends it", "shift:2,2 Down", "@0,1"},
      {"dragging selects from where it began", "drag:2,3-1,1", "@2,3 [6]"},
      {"a right click keeps a selection", "shift:1,1 right:1,1", "@0,0 [4]"},
      {"that it hits", "shift:1,1 right:2,3", "@2,3"},
      {"outside the sheet is nowhere", "0,5", "@-1,-1"},
      {"Tab leaves at the end", "1,4 Tab Tab", "@2,4 left"},
      {"and with Ctrl", "0,1 'x Ctrl+Tab", "0,1=x @0,1 left"},
  };
  for (const Step& step : steps) {
    begin(3, 5);
    grid.setFocus();
    follow({step});
  }
}

TEST_F(GridSteps, KeysGoOverHiddenRowsAndToTheEdgesOfWhatIsFilled) {
  begin(5, 10);
  grid.SetDefaultRowHeight(80);  // a page of three rows
  grid.HideRow(0, 3);
  grid.SetCellText(0, 0, QString());
  for (const int row : {1, 2, 5, 6}) grid.SetCellText(0, row, u"x"_qs);
  grid.Redraw();
  const QString moves =
      u"0,2 Down 0,4|0,4 Up 0,2|0,0 Up 0,0|0,9 Down 0,9|4,1 Right 4,1|2,1 Left 1,1|"
      u"0,0 Ctrl+Down 0,1|0,1 Ctrl+Down 0,2|0,2 Ctrl+Down 0,5|0,6 Ctrl+Down 0,9|0,9 Ctrl+Up 0,6|"
      u"0,1 Ctrl+Right 4,1|3,4 Home 0,4|3,4 End 4,4|3,4 Ctrl+Home 0,0|3,4 Ctrl+End 4,9|"
      u"1,1 PgDown 1,5|1,9 PgUp 1,6|4,2 Tab 0,4|0,4 Shift+Backtab 4,2|1,1 Shift+Enter 1,0"_qs;
  for (const QString& move : moves.split(u'|')) {
    play(move.section(u' ', 0, 1).toUtf8());
    EXPECT_TRUE(state().contains(u'@' + move.section(u' ', 2) + u' ')) << move.toStdString();
  }
  begin(3, 0);
  follow({{"an empty sheet", "Down Ctrl+End PgDown", "@-1,-1 rows:0"}});
}

TEST_F(GridSteps, CutCopyAndPasteAsSpreadsheetsDo) {
  grid.setColumnLocked(2, true);
  QSignalSpy cut(&grid, &GridSurface::PasteCut);
  follow({
      {"cut empties", "Ctrl+X", "0,0= @0,0"},
      {"and brings all back", "0,1 Ctrl+V", "0,0= 0,1=旧#K @0,1"},
      {"over a selection too", "shift:0,2 Ctrl+V", "0,0= 0,1=旧#K 0,2=旧#K @0,1 [2]"},
      {"one step of undo", "Ctrl+Z Ctrl+Z Ctrl+Z", "@0,0"},
      {"texts lose the tag", "clip:a Ctrl+V", "0,0=a @0,0"},
      {"lines", "0,2 clip:1→\"2¶2\"¶3→4¶ Ctrl+V", "0,0=a 0,2=1 1,2=2/2 0,3=3 1,3=4 @0,2"},
      {"a closed column stays", "0,2 shift:1,3 Del 1,0 clip:x→y Ctrl+V", "0,0=a 1,0=x @1,0"},
      {"nothing grows", "0,4 clip:u¶v Ctrl+V", "0,0=a 1,0=x 0,4=u @0,4"},
      {"an empty clipboard", "clip: Ctrl+V 'z Ctrl+V Return", "0,0=a 1,0=x 0,4=z @0,4"},
  });
  ASSERT_EQ(cut.count(), 1);
  EXPECT_EQ(cut[0], (QVariantList{1, 0})) << "rows and columns without room";
  begin(2, 5);
  grid.setGrowsOnPaste(true);
  grid.HideRow(0, 2);
  follow({
      {"rows are added", "0,4 clip:u¶v Ctrl+V", "0,4=u 0,5=v @0,4 rows:6"},
      {"and taken back", "Ctrl+Z", "@0,4"},
      {"a hidden row stays", "0,1 clip:r¶s Ctrl+V", "0,1=r 0,3=s @0,1"},
      {"and is not copied", "shift:0,3 Ctrl+C 1,3 Ctrl+V", "0,1=r 0,3=s 1,3=r 1,4=s @1,3"},
  });
}

TEST(ClipboardText, ReadsThePageThatIsOneTableAndNoOther) {
  const QString table =
      u"<table><colgroup width=\"85\"></colgroup><tr><td sdnum=\"1033;0;@\">a<br>b</td>"
      u"<td>&lt;1&nbsp;&amp;</td></tr>\n<tr><td colspan=2>wide</td></tr>"
      u"<tr><td></td><td><p>x</p><p>y</p></td></tr></table>"_qs;
  const TextTable cells{{u"a\nb"_qs, u"<1 &"_qs}, {u"wide"_qs, QString()}, {QString(), u"x\ny"_qs}};
  EXPECT_EQ(readHtmlTable(u"<style>td{color:red}</style>"_qs + table + u'\n'), cells);
  const QString wide = u"<table><tr><td colspan=%1>x</td></tr></table>"_qs;
  const QStringList others{u"<p>text</p>"_qs + table, table + table, wide.arg(9999), wide.arg(999),
                           QString(2'000'000, u' ') + table};
  for (const QString& other : others) EXPECT_EQ(readHtmlTable(other), TextTable());
}

TEST_F(GridSteps, PasteWhatOtherProgramsWrite) {
  follow({{"quotes inside", R"(clip:5"→"half"quoted Ctrl+V)", R"(0,0=5" 1,0="half"quoted @0,0)"},
          {"never closed", R"(clip:"open→x¶y Ctrl+V)", R"(0,0="open 1,0=x 0,1=y @0,0)"},
          {"empty fields", R"(clip:""→x¶¶z Ctrl+V)", "0,0= 1,0=x 0,2=z @0,0"}});
  auto* data = new QMimeData;
  data->setText(u"a b\t two  blanks\r\n"_qs);
  data->setHtml(u"<table><tr><td>a<br>b</td><td>two blanks</td></tr></table>"_qs);
  QGuiApplication::clipboard()->setMimeData(data);
  follow({{"line breaks of the page", "Ctrl+V", "0,0=a/b 1,0= two  blanks 0,2=z @0,0"}});
}

TEST_F(GridSteps, CopyTellsSpreadsheetsWhichCellsAreTexts) {
  const QString texts[]{u"01"_qs, u"12"_qs, u"\"a<b\"\rc"_qs};
  for (int col = 0; col < 3; ++col) grid.SetCellText(col, 0, texts[col]);
  play("shift:2,0 Ctrl+C");
  grid.SetCellText(0, 0, u"later"_qs);
  const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
  EXPECT_EQ(copied->text(), u"01\t12\t\"\"\"a<b\"\"\nc\"\n");
  const QString start = uR"(<td sdnum="1033;0;@" style="mso-number-format:'\@'">)"_qs;
  const QString cells = start + u"01</td><td>12</td>" + start + u"&quot;a&lt;b&quot;<br>c</td>";
  EXPECT_TRUE(copied->html().contains(cells)) << copied->html().toStdString();
}

TEST_F(GridSteps, UndoAndDoAgain) {
  follow({
      {"three changes", "'a Return clip:b→c Ctrl+V 0,0 Del", "0,0= 0,1=b 1,1=c @0,0"},
      {"and back at the place", "2,4 Ctrl+Z Ctrl+Z", "0,0=a @0,1"},
      {"no further than the first", "Ctrl+Z Ctrl+Z", "@0,0"},
      {"again", "Ctrl+Y Ctrl+Y Ctrl+Y Ctrl+Y", "0,0= 0,1=b 1,1=c @0,0"},
      {"one entry is one step", "'a F3 'b Ctrl+J Return Ctrl+Z", "0,0= 0,1=b 1,1=c @0,0"},
      {"a new one ends the others", "2,2 'n Return Ctrl+Y", "0,0= 0,1=b 1,1=c 2,2=n @2,3"},
  });
  begin(3, 5);
  play("'a Return");
  grid.horizontalHeader()->resizeSection(1, 133);
  follow({{"back but for a dragged width", "Ctrl+Z", "@0,0"}});
  EXPECT_EQ(grid.columnWidth(1), 133);
  {
    const UndoStep step(grid, u"追加"_qs);
    grid.InsertRows(1, 2);
    grid.SetCellText(0, 1, u"new"_qs);
  }
  follow({{"the program's step", "Ctrl+Z", "@0,0"},
          {"is done again", "Ctrl+Y", "0,1=new @0,0 rows:7"}});
  grid.DeleteRows(1, 1);
  follow({{"a change that is none", "Ctrl+Z", "@0,0 rows:6"}});
  QObject::connect(&grid, &GridSurface::CellEditStart, &grid, [this](int, int row) {
    if (row == 5) grid.DeleteRows(4, 2);
  });
  follow({{"a row that goes when it is opened", "double:1,5", "@1,3 rows:4"}});
}

TEST_F(GridSteps, TheRuleGivesTagsAndRefusesTexts) {
  grid.setEntryRule([](int, int, const QString& text) {
    const bool isKnown = text.startsWith(u'a');
    return isKnown ? std::optional<CellEntry>({text.toUpper(), u"T"_qs}) : std::nullopt;
  });
  grid.SetCellText(2, kHeadingRow, u"名称"_qs);
  QSignalSpy refused(&grid, &GridSurface::EntriesRefused);
  follow({{"two of three", "1,0 clip:a1¶b1¶b2 Ctrl+V", "1,0=A1#T @1,0"},
          {"its cell closes", "0,0 'c F3", "1,0=A1#T @0,0"},
          {"what is known is not asked about", "Ctrl+C 0,1 Ctrl+V", "1,0=A1#T 0,1=旧#K @0,1"},
          {"but under another heading", "2,1 Ctrl+V", "1,0=A1#T 0,1=旧#K @2,1"},
          {"no rule keeps a text", "1,0 shift:0,1 Del", "0,0= @1,0 [4]"}});
  EXPECT_EQ(refused, (QList<QVariantList>{{2, u"b1"_qs}, {1, u"c"_qs}, {1, u"旧"_qs}}));
  grid.setWorkRunner([](QWidget*, const std::function<void(const WorkProgress&)>& work) {
    work([](const WorkStep& step) { return step.done == 0; });
  });
  grid.setGrowsOnPaste(true);
  QGuiApplication::clipboard()->setText(u"a\n"_qs.repeated(1000));
  follow({{"a long paste that is given up", "2,0 Ctrl+V", "0,0= @2,0"}});
}

TEST_F(GridSteps, ClosedCellsStayWhateverIsDone) {
  grid.setFrozen(0, 1);
  follow({{"headings", "0,1 'x Return Ctrl+A Del clip:1→2¶3 0,0 Ctrl+V double:0,0 F2 't",
           "0,1=3 @0,0"}});
  grid.setEditable(false);
  QSignalSpy activated(&grid, &GridSurface::CellActivated);
  follow({{"all", "1,2 'x F2 Del double:0,0 Ctrl+X Ctrl+V 1,2 Return Space", "0,1=3 @1,2"},
          {"Tab goes on", "Tab", "0,1=3 @1,2 left"}});
  EXPECT_EQ(activated.takeLast(), (QVariantList{1, 2}));
}

TEST_F(GridSteps, OnlyALeftClickOnOneCellCounts) {
  QSignalSpy clicks(&grid, &GridSurface::CellClick);
  play("drag:0,0-1,2 right:1,1 shift:1,1 double:2,3 Escape click:1,1");
  EXPECT_EQ(clicks, (QList<QVariantList>{{2, 3}, {1, 1}}));
  QFocusEvent leave(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&grid, &leave);
  QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, rect(1, 1).center());
  EXPECT_EQ(editor(), nullptr) << "the other half of a double click began in another window";
}

TEST_F(GridSteps, TheWindowHearsOfKeysAfterTheTextIsInItsCell) {
  QStringList seen;
  QObject::connect(&grid, &GridSurface::GridKeyDown, &grid, [&](QKeyEvent* event) {
    seen << grid.GetCellText(0, 0);
    event->setAccepted(event->key() == Qt::Key_Delete);
  });
  follow({{"what the window uses", "Del F2 'a F3 'b Ctrl+J 'c", "0,0=旧ab @0,0 open"}});
  EXPECT_EQ(seen.join(u' '), u"旧 旧 旧a 旧ab");
  QKeyEvent letter(QEvent::ShortcutOverride, Qt::Key_S, Qt::AltModifier);
  QApplication::sendEvent(editor(), &letter);
  follow({{"before a button is pressed by its letter", "", "0,0=旧abc @0,0 open"}});
}

TEST_F(GridSteps, ARowIsEnteredOnceAndGoesWhereItsRowGoes) {
  QSignalSpy moves(&grid, &GridSurface::CellEntered);
  play("Down Right click:2,3 1,3");
  grid.InsertRows(1, 2);
  follow({{"down with its row", "", "@1,5 rows:7"}});
  grid.DeleteRows(1, 1);
  grid.DeleteRows(4, 1);
  follow({{"the next row moves up", "", "@1,4"}});
  EXPECT_EQ(moves, (QList<QVariantList>{{0, 1}, {1, 3}}));
  grid.sheet().SetRows(2);
  EXPECT_EQ(grid.CurrentRow(), -1) << "rules shortened the sheet behind the grid's back";
  grid.Redraw();
  EXPECT_EQ(moves.constLast(), (QVariantList{4, -1}));
}

TEST_F(GridSteps, FrozenHeadingsStayWhileTheRestScrolls) {
  begin(20, 60);
  grid.setHeadingStripVisible(false);
  grid.setFrozen(1, 1);
  grid.sheet().SetCellColors(0, 0, kWhite, kBlue);
  settle();
  const QRect corner = rect(0, 0);
  const QPoint heading = rect(3, 0).topLeft();
  const QPoint cell = rect(3, 3).topLeft();
  grid.horizontalScrollBar()->setValue(90);
  grid.verticalScrollBar()->setValue(50);
  EXPECT_EQ(rect(0, 0), corner);
  EXPECT_EQ(rect(3, 0).topLeft(), heading - QPoint(90, 0));
  EXPECT_EQ(rect(3, 3).topLeft(), cell - QPoint(90, 50));
  const QImage image = grid.viewport()->grab().toImage();
  EXPECT_EQ(image.pixelColor(corner.right() - 2, 2), QColor(Qt::blue)) << "nothing lies over it";
  follow({{"a heading", "click:5,0", "@5,0 rows:60"},
          {"a cell", "click:6,8", "@6,8 rows:60"},
          {"a selection under headings", "2,2 Shift+Right Shift+Down", "@2,2 [4] rows:60"}});
  play("0,1");
  grid.horizontalScrollBar()->setValue(50);
  grid.verticalScrollBar()->setValue(10);
  follow({{"out from under the headings", "Right", "@1,1 rows:60"}});
  EXPECT_EQ(rect(1, 1).topLeft(), corner.bottomRight() + QPoint(2, 2));
  for (const int row : {0, 5}) {
    const QPoint edge(rect(2, row).right(), rect(2, row).center().y());
    drag(grid.viewport(), edge, edge + QPoint(37, 0));
    EXPECT_EQ(grid.columnWidth(2), 117) << "dragged in the headings alone";
  }
}

}  // namespace vellora
