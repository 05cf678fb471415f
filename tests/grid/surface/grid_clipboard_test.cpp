#include "grid/surface/clipboard_text.h"
#include "grid_hands.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

namespace vellora {
namespace {

class GridClipboard : public testing::Test, protected test::GridHands {
 protected:
  GridClipboard() : GridHands(3, 4) { grid.setEditable(true); }
  void openMenu() {
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint());
    QApplication::sendEvent(grid.viewport(), &asked);
  }
};

}  // namespace

TEST(ClipboardText, ReadsWhatOtherProgramsWrite) {
  struct Case {
    QString text;
    TextTable table;
  };
  const std::vector<Case> cases{
      {u""_qs, {}},
      {u"a"_qs, {{u"a"_qs}}},
      {u"a\r\nb\r\n"_qs, {{u"a"_qs}, {u"b"_qs}}},
      {u"a\rb"_qs, {{u"a"_qs}, {u"b"_qs}}},
      {u"a\n\nb\n"_qs, {{u"a"_qs}, {u""_qs}, {u"b"_qs}}},
      {u"\t\n"_qs, {{u""_qs, u""_qs}}},
      {u"\"never closed\tx\ny"_qs, {{u"\"never closed"_qs, u"x"_qs}, {u"y"_qs}}},
      {u"\"half\"quoted\tx"_qs, {{u"\"half\"quoted"_qs, u"x"_qs}}},
      {u"5\" wide\tx"_qs, {{u"5\" wide"_qs, u"x"_qs}}},
      {u"\"\"\tx"_qs, {{u""_qs, u"x"_qs}}},
  };
  for (const Case& c : cases) EXPECT_EQ(readTabSeparated(c.text), c.table) << c.text.toStdString();
}

TEST(ClipboardText, ReadsThePageThatIsOneTableAndNoOther) {
  const QString start = u"<html><head><style>td{color:red}</style></head><body>"_qs;
  const QString table =
      u"<table cellspacing=\"0\"><colgroup width=\"85\"></colgroup><tr>"
      u"<td height=\"17\" align=\"left\" sdnum=\"1033;0;@\">a<br>b</td><td>&lt;1&nbsp;&amp;</td>"
      u"</tr>\n<tr><td colspan=2>wide</td></tr><tr><td></td><td><p>x</p><p>y</p></td></tr>"
      u"</table>"_qs;
  const TextTable cells{{u"a\nb"_qs, u"<1 &"_qs}, {u"wide"_qs, QString()}, {QString(), u"x\ny"_qs}};
  EXPECT_EQ(readHtmlTable(start + table + u"\n</body>"_qs), cells);
  EXPECT_EQ(readHtmlTable(start + u"<p>text</p>"_qs + table), TextTable());
  EXPECT_EQ(readHtmlTable(start + table + table), TextTable());
  const QString wide = u"<tr><td colspan=%1>x</td></tr>"_qs;
  EXPECT_EQ(readHtmlTable(u"<table>"_qs + wide.arg(9999) + u"</table>"_qs), TextTable());
  EXPECT_EQ(readHtmlTable(u"<table>"_qs + wide.arg(999).repeated(50)), TextTable());
  EXPECT_EQ(readHtmlTable(start + QString(2'000'000, u' ') + table), TextTable());
}

TEST_F(GridClipboard, TellsSpreadsheetsWhichCellsAreTexts) {
  const QStringList cells[]{{u"01"_qs, u"=1+1"_qs, u"12"_qs},
                            {u"a<b"_qs, u"two\rlines"_qs, u"\"q\""_qs}};
  for (int row = 0; row < 2; ++row) {
    for (int col = 0; col < 3; ++col) grid.SetCellText(col, row, cells[row][col]);
  }
  select(0, 0, 2, 1);
  press(Qt::Key_C, Qt::ControlModifier);
  grid.SetCellText(0, 0, u"later"_qs);
  EXPECT_EQ(test::clipboardText(), u"01\t=1+1\t12\na<b\t\"two\nlines\"\t\"\"\"q\"\"\"\n");
  const QString html = QGuiApplication::clipboard()->mimeData()->html();
  const QString text = uR"(<td sdnum="1033;0;@" style="mso-number-format:'\@'">)"_qs;
  EXPECT_TRUE(html.contains(text + u"01</td>" + text + u"=1+1</td><td>12</td>"))
      << html.toStdString();
  EXPECT_TRUE(html.contains(u">a&lt;b</td>"_qs));
  EXPECT_TRUE(html.contains(u">two<br>lines</td>"_qs));
}

TEST_F(GridClipboard, LineBreaksComeFromTheHtmlAndTheRestFromTheText) {
  auto* data = new QMimeData;
  data->setText(u"a b\t two  blanks\n"_qs);
  data->setHtml(u"<table><tr><td>a<br>b</td><td>two blanks</td></tr></table>"_qs);
  QGuiApplication::clipboard()->setMimeData(data);
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(text(0, 0) + u'|' + text(1, 0), u"a\rb| two  blanks");
}

TEST_F(GridClipboard, TheContextMenuOffersWhatCanBeDone) {
  grid.SetCellText(0, 0, u"x"_qs);
  QGuiApplication::clipboard()->setMimeData(new QMimeData);
  QString name = u"昨天"_qs;
  grid.setDocumentName([&] { return name; });
  name = u"今天"_qs;
  openMenu();
  QStringList offered;
  const auto actions = grid.findChild<QMenu*>()->actions();
  for (QAction* action : actions) {
    if (action->isEnabled() && !action->isSeparator()) offered << action->text();
    if (action->text() == u"清除") action->trigger();
  }
  EXPECT_EQ(text(0, 0), QString());
  EXPECT_TRUE(offered.contains(u"复制"_qs));
  for (const auto& idle : {u"撤消"_qs, u"粘贴"_qs, u"重复本行"_qs}) {
    EXPECT_FALSE(offered.contains(idle)) << idle.toStdString();
  }
  QString title;
  QTimer::singleShot(0, [&] {
    title = QApplication::activeModalWidget()->windowTitle();
    QApplication::activeModalWidget()->close();
  });
  actions.constLast()->trigger();
  EXPECT_TRUE(title.contains(u"今天"_qs)) << "printed under the name of that moment";
}

}  // namespace vellora
