#include "grid/surface/clipboard_text.h"
#include "grid_hands.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>

namespace vellora {

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

TEST_F(GridSteps, TheContextMenuOffersWhatCanBeDone) {
  QGuiApplication::clipboard()->setMimeData(new QMimeData);
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint());
  QApplication::sendEvent(grid.viewport(), &asked);
  QStringList offered;
  for (QAction* action : grid.findChild<QMenu*>()->actions()) {
    if (action->isEnabled() && !action->isSeparator()) offered << action->text();
  }
  EXPECT_EQ(offered.join(u' '), u"剪切 复制 清除 全选 打印...");
}

}  // namespace vellora
