#include "grid/files/html_writer.h"

#include "file_messages.h"
#include "grid/files/html_style.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QBuffer>
#include <QProcess>

#include <gtest/gtest.h>

namespace vellora {
namespace {

QString htmlOf(const Sheet& sheet, const QString& title = u"列表"_qs) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  writeHtml(sheet, {}, title, buffer);
  return QString::fromUtf8(buffer.data());
}

Sheet sheetOf(int cols, int rows) {
  Sheet sheet;
  sheet.SetCols(cols);
  sheet.SetRows(rows);
  return sheet;
}

// What stands in each of these elements, with its markup; a cell has no end tag.
QStringList contents(const QString& html, const QString& element) {
  QStringList found;
  for (const QString& part : html.split(u'<' + element + u' ').sliced(1)) {
    found << part.section(u'>', 1).section(u'<', 0, 0);
  }
  return found;
}

QByteArray htmlText(const QString& text) {
  QByteArray html;
  appendHtml(html, text);
  return html;
}

}  // namespace

TEST(HtmlText, EscapesMarkupAndReplacesWhatADocumentCannotHold) {
  const struct {
    QString text;
    QByteArray html;
  } cases[]{{u"<b>&amp;\"'"_qs, "&lt;b&gt;&amp;amp;&quot;'"},
            {u"一\r二\n三\r\n四"_qs, "一&#10;二&#10;三&#10;四"},
            {u"😀   x\t"_qs, "😀 &#32;&#32;x\t"},
            {u"a\x01\x7F\uFFFEb"_qs, "a\uFFFD\uFFFD\uFFFDb"},
            {QString(QChar(0xD800)) + u'x', "\uFFFDx"},
            {{}, ""}};
  for (const auto& c : cases) EXPECT_EQ(htmlText(c.text), c.html);
}

TEST(HtmlWriter, PutsHeadingsAndCellsInOrderAndLeavesHiddenRowsOut) {
  Sheet sheet = sheetOf(2, 3);
  sheet.SetCellText(0, kHeadingRow, u"名称"_qs);
  sheet.SetCellText(1, kHeadingRow, u"时间"_qs);
  sheet.SetCellText(0, 0, u"读书"_qs);
  sheet.SetCellText(0, 1, u"藏"_qs);
  sheet.SetCellText(1, 2, u"001"_qs);
  sheet.HideRow(1);
  const QString html = htmlOf(sheet);
  EXPECT_EQ(contents(html, u"th"_qs), (QStringList{u"名称"_qs, u"时间"_qs}));
  EXPECT_EQ(contents(html, u"td"_qs), (QStringList{u"读书"_qs, QString(), QString(), u"001"_qs}));
}

TEST(HtmlWriter, LeavesTheHeadingsOutWhereNoneHasAText) {
  EXPECT_FALSE(htmlOf(sheetOf(2, 2)).contains(u"<thead>"));
  EXPECT_TRUE(htmlOf(Sheet(), {}).contains(u"<title>Vellora</title>"));
}

TEST(HtmlWriter, GivesEveryLookInUseItsRule) {
  Sheet sheet = sheetOf(1, 2);
  sheet.SetCellColors(0, 1, packColour(1, 2, 3), packColour(255, 170, 0));
  sheet.SetCellAlign(0, 1, kAlignRight + kAlignBottom);
  sheet.SetRangeBorder(0, 1, 0, 1, 0, 2, kBlue);
  sheet.SetCellFont(0, 1, 12, kFontBold, u"黑体"_qs);
  sheet.SetColumnWidth(0, 120);
  sheet.SetRowHeight(1, 50);
  const QString html = htmlOf(sheet);
  for (const QString& part :
       {u"font:bold 12pt \"黑体\",sans-serif;text-align:right;vertical-align:bottom"_qs,
        u"color:#010203;background:#ffaa00;border:2px solid #0000ff;mso-number-format:"_qs,
        u"<col style=\"width:120px\">"_qs, u"<tr style=\"height:50px\">"_qs}) {
    EXPECT_TRUE(html.contains(part)) << part.toStdString();
  }
  const int number = sheet.StyleNumberAt(0, 1);
  EXPECT_TRUE(html.contains(u"<td class=s%1>"_qs.arg(number)));
  EXPECT_TRUE(html.contains(u"\n.s%1{font:bold"_qs.arg(number)));
}

TEST(HtmlWriter, LetsNoFaceEndTheStyleElementOrItsRule) {
  Sheet sheet = sheetOf(1, 1);
  sheet.SetCellFont(0, 0, 9, 0, u"x\"}</style><script>\\"_qs);
  const QString html = htmlOf(sheet, u"</title><script>"_qs);
  EXPECT_FALSE(html.contains(u"<script"));
  EXPECT_EQ(html.count(u"</style>"), 1);
  EXPECT_TRUE(html.contains(u"\"x\\22 \\7d \\3c \\2f style\\3e "));
}

TEST(HtmlFile, IsValidWhateverTheTexts) {
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"表.HTM"_qs);
  Sheet nasty = sheetOf(2, 7);
  nasty.SetCellText(0, kHeadingRow, u"</th><th>"_qs);
  const QStringList texts{u"</td></table><script>alert(1)</script>"_qs,
                          u"&lt; &#0; &\r\n\r  x"_qs,
                          u"\x01\x7F\u0085\uFFFE"_qs + QChar(0xDC00),
                          u"\"'`-->]]><!--"_qs,
                          u"\t 😀 =1+1"_qs,
                          u"007"_qs,
                          u"12.5"_qs};
  for (int row = 0; row < texts.size(); ++row) nasty.SetCellText(0, row, texts[row]);
  nasty.SetCellFont(1, 0, 9, kFontBold, u"x\"}</style>"_qs);
  nasty.SetCellColors(1, 1, kRed, kWhite);
  nasty.SetRangeBorder(0, 2, 1, 3, 0, 2, kBlue);
  nasty.SetRowHeight(4, 80);
  for (const Sheet& sheet : {nasty, sheetOf(1, 1), sheetOf(1, 0)}) {
    writeHtmlFile(sheet, {true, true}, u"</title>&x"_qs, path);
    QProcess tidy;
    tidy.start(u"tidy"_qs,
               {u"-quiet"_qs, u"-errors"_qs, u"--drop-empty-elements"_qs, u"no"_qs, path});
    ASSERT_TRUE(tidy.waitForFinished()) << tidy.errorString().toStdString();
    EXPECT_EQ(QString::fromUtf8(tidy.readAllStandardError()), QString());
    EXPECT_EQ(tidy.exitCode(), 0);
  }
}

TEST(HtmlFile, IsNotWrittenWhenTheWorkIsGivenUp) {
  const test::TemporaryFolder folder;
  for (int steps = 0; steps < 4; ++steps) {
    int left = steps;
    const auto progress = [&](const WorkStep&) { return left-- > 0; };
    const QString path = folder.path(u"表.HTM"_qs);
    EXPECT_THROW(writeHtmlFile(sheetOf(1, 1'000), {}, u"表"_qs, path, progress), WorkGivenUp);
    EXPECT_TRUE(folder.names().isEmpty());
  }
}

TEST(HtmlFile, IsReplacedWholeOrNotAtAll) {
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"表.HTM"_qs);
  test::writeBytes(path, "old");
  Sheet sheet = sheetOf(1, 1);
  QString message;
  {
    const test::FileSizeLimit full(100);
    message = test::messageOf([&] { writeHtmlFile(sheet, {}, u"表"_qs, path); });
  }
  EXPECT_EQ(message, u"无法写入文件“%1”：文件超过了系统允许的大小。"_qs.arg(path));
  EXPECT_EQ(test::bytesOf(path), "old");
  writeHtmlFile(sheet, {}, u"表"_qs, path);
  EXPECT_TRUE(test::bytesOf(path).endsWith("</html>\n"));
}

}  // namespace vellora
