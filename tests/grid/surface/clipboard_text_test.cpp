#include "grid/surface/clipboard_text.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

TEST(ClipboardText, ComesBackAsItWasWritten) {
  const TextTable table{{u"a"_qs, u"tab\there"_qs, u""_qs},
                        {u"line\nline"_qs, u"\"quoted\""_qs, u"in\"side"_qs},
                        {u"\""_qs, u" \" "_qs, u"末"_qs}};
  EXPECT_EQ(readTabSeparated(tabSeparated(table)), table);
}

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

}  // namespace
}  // namespace vellora
