#include "schedule/items.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(SuggestedCode, CountsUpTheLastThreeCharacters) {
  struct Case {
    QString code;
    QString next;
  };
  const Case cases[]{
      {u"005"_qs, u"006"_qs},       {u"HD099"_qs, u"HD100"_qs}, {u"HD012"_qs, u"HD013"_qs},
      {u"999"_qs, u"1000"_qs},      {u"7"_qs, u"8"_qs},         {u"9"_qs, u"10"_qs},
      {u"09"_qs, u"10"_qs},         {u"99"_qs, u"100"_qs},      {u"A05"_qs, u"001"_qs},
      {u"ABCDEF"_qs, u"ABC001"_qs}, {u"x"_qs, u"1"_qs},         {u"读书"_qs, u"01"_qs},
      {u"1.5"_qs, u"002"_qs},       {u"A０１"_qs, u"001"_qs},   {u"AB12x"_qs, u"AB013"_qs},
  };
  for (const auto& [code, next] : cases) EXPECT_EQ(suggestedCode(code), next) << code.toStdString();
}

TEST(StoredItemText, IsOneLineWithoutBlanksAround) {
  EXPECT_EQ(storedItemText(u" 晨 读\t"_qs), u"晨 读"_qs);
  EXPECT_EQ(storedItemText(u"晨读\n"_qs), u"晨读"_qs);
  EXPECT_EQ(storedItemText(u"晨读\n英语\u2028单词"_qs), u"晨读 英语 单词"_qs);
  EXPECT_EQ(storedItemText(u"　 "_qs), QString());
}

TEST(ItemSheet, ShowsAStoredItemInTheColourOfItsCategory) {
  Sheet sheet;
  setUpItemSheet(sheet);
  sheet.SetRows(1);
  showItem(sheet, 0, {u"004"_qs, u"访友"_qs, u"4-社交"_qs, true}, 7);
  EXPECT_EQ(itemIdAt(sheet, 0), 7);
  EXPECT_EQ(sheet.GetCellText(kItemNameCol, 0), u"访友"_qs);
  EXPECT_EQ(sheet.GetCellText(kItemStateCol, 0), u"1"_qs);
  EXPECT_EQ(sheet.StyleAt(kItemNameCol, 0).textColour, 49152U);
  EXPECT_EQ(sheet.StyleAt(kItemNameCol, 0).backColour, kWhite);
  EXPECT_FALSE(sheet.StyleAt(kItemCodeCol, 0).hasColours);
}

}  // namespace vellora
