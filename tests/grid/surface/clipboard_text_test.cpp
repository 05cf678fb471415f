#include "grid/surface/clipboard_text.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

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

}  // namespace
}  // namespace vellora
