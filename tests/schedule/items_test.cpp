#include "schedule/items.h"

#include "store/statements.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

class ItemCatalogueTest : public testing::Test {
 protected:
  test::ScheduleBuilder builder_;
  Sheet sheet_;

  ItemCatalogueTest() { setUpItemSheet(sheet_); }

  QStringList codes() const {
    QStringList all;
    for (int row = 0; row < sheet_.Rows(); ++row) {
      all << sheet_.GetCellText(kItemCodeCol, row);
    }
    return all;
  }
};

}  // namespace

TEST_F(ItemCatalogueTest, ListsACategoryInTheOrderOfItsCodes) {
  builder_.item(u"003"_qs, u"跑步"_qs, u"3-运动"_qs, 1, 65280)
      .item(u"001"_qs, u"晨读"_qs, u"2-学习"_qs)
      .item(u"002"_qs, u"游泳"_qs, u"3-运动"_qs);
  ScheduleStore store = builder_.store();
  ItemCatalogue catalogue(store);
  catalogue.filter(u"3-运动"_qs, sheet_);
  EXPECT_EQ(codes(), (QStringList{u"002"_qs, u"003"_qs}));
  EXPECT_EQ(sheet_.GetCellText(kItemStateCol, 1), u"1"_qs);
  EXPECT_EQ(sheet_.StyleAt(kItemNameCol, 1).textColour, 65280U);
  EXPECT_FALSE(catalogue.find(u"001"_qs)) << "an item of another category";
  catalogue.filter(u"所有类别"_qs, sheet_);
  EXPECT_EQ(codes(), (QStringList{u"003"_qs, u"001"_qs, u"002"_qs}));
  catalogue.filter(u"6-休息"_qs, sheet_);
  EXPECT_TRUE(catalogue.isEmpty());
  EXPECT_EQ(sheet_.Rows(), 0);
}

TEST_F(ItemCatalogueTest, GoesOnInItsCategoryAfterAFilterThatFailed) {
  builder_.item(u"001"_qs, u"晨读"_qs, u"2-学习"_qs);
  ScheduleStore store = builder_.store();
  ItemCatalogue catalogue(store);
  catalogue.filter(u"2-学习"_qs, sheet_);
  builder_.sql(u"ALTER TABLE HD RENAME TO HD0"_qs);
  EXPECT_TRUE(test::faultOf([&] { catalogue.filter(u"3-运动"_qs, sheet_); }));
  EXPECT_EQ(codes(), QStringList{u"001"_qs});
  builder_.sql(u"ALTER TABLE HD0 RENAME TO HD"_qs);
  EXPECT_TRUE(catalogue.add({u"002"_qs, u"英语"_qs, u"2-学习"_qs}));
  EXPECT_TRUE(catalogue.find(u"001"_qs));
}

TEST_F(ItemCatalogueTest, FindsWhatItStoredAndKeepsOtherItems) {
  builder_.item(u"001"_qs, u"晨读"_qs);
  ScheduleStore store = builder_.store();
  ItemCatalogue catalogue(store);
  catalogue.filter(u"所有类别"_qs, sheet_);
  const QString quoted = u"读 'O''Hara'; #1%]\""_qs;
  catalogue.add({u"a'b"_qs, quoted, u"5-娱乐"_qs, true});
  const auto added = catalogue.find(u"a'b"_qs);
  ASSERT_TRUE(added);
  EXPECT_EQ(added->name, quoted);
  EXPECT_FALSE(added->completed) << "a new item is open";
  catalogue.change({u"a'b"_qs, u"看戏"_qs, u"6-休息"_qs, true});

  Recordset stored = store.open(statements::itemNamed(u"看戏"_qs));
  ASSERT_EQ(stored.count(), 1);
  EXPECT_EQ(stored.number(u"SFWC"), 1);
  EXPECT_EQ(stored.number(u"FRGB"), 0);
  EXPECT_EQ(stored.text(u"HDLB"), u"6-休息"_qs);
  catalogue.find(u"a'b"_qs);
  catalogue.remove();
  EXPECT_FALSE(catalogue.find(u"a'b"_qs));
  EXPECT_EQ(catalogue.find(u"001"_qs)->name, u"晨读"_qs);
}

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

}  // namespace vellora
