#include "store_fixture.h"

namespace vellora {
namespace {

class RecordsetTest : public StoreTest {};

TEST_F(RecordsetTest, WalksAndFindsOrStaysWhereItWas) {
  Recordset items = store.open(statements::allItems());
  QStringList numbers;
  for (; !items.atEnd(); items.moveNext()) numbers.append(items.text(u"hdbh"));
  EXPECT_EQ(numbers, QStringList({u"001"_qs, u"002"_qs, u"003"_qs}));
  EXPECT_EQ(faultOf([&] { items.text(u"HDBH"); }), StoreFault::NoCurrentRow);
  items.moveLast();
  EXPECT_EQ(items.text(u"HDBH"), u"003"_qs);
  EXPECT_TRUE(items.findFirst(statements::itemNameIs(u"O'Neil #1"_qs)));
  EXPECT_FALSE(items.findFirst(statements::itemNameIs(u"o'neil #1"_qs)));
  EXPECT_TRUE(items.noMatch());
  EXPECT_EQ(items.text(u"HDBH"), u"002"_qs);
  EXPECT_TRUE(items.findFirst(u"[hdlb] = '1-工作' AND HD.SFWC=0 and HDBH='003'"_qs));
  EXPECT_EQ(items.position(), 2);
  EXPECT_EQ(faultOf([&] { items.findFirst(u"HDBH=?"_qs); }), StoreFault::Syntax);
  items.moveTo(-1);
  EXPECT_TRUE(items.atEnd());
}

TEST_F(RecordsetTest, AnAddedRowIsCurrentAndPartOfTheSet) {
  for (const Query& query : {statements::allItems(), statements::itemNamed(u"别的"_qs)}) {
    for (const bool readBefore : {false, true}) {
      Recordset items = store.open(query);
      if (readBefore) items.moveFirst();
      items.addNew();
      items.set(u"hdmc", u"新活动"_qs);
      items.update();
      EXPECT_EQ(items.text(u"HDMC"), u"新活动"_qs);
      EXPECT_EQ(items.value(u"SFWC"), QVariant(qint64{0})) << "the column's default";
      EXPECT_FALSE(items.value(u"FRGB").isValid());
      EXPECT_EQ(items.position(), items.count() - 1);
    }
  }
  EXPECT_EQ(count(u"HD"_qs), 7);
}

TEST_F(RecordsetTest, AnEditChangesWhatWasSetAndRemovingMakesTheNextRowCurrent) {
  builder.sql(u"UPDATE HD SET HDLB=NULL WHERE HDBH='003'"_qs);
  Recordset items = store.open(statements::allItems());
  items.findFirst(statements::itemNumberIs(u"003"_qs));
  items.edit();
  items.set(u"HDMC", u"写作"_qs);
  EXPECT_EQ(faultOf([&] { items.set(u"FRGB", u"红"_qs); }), StoreFault::NotANumber);
  EXPECT_EQ(faultOf([&] { items.set(u"没有", 1); }), StoreFault::ColumnMissing);
  items.set(u"HDMC", u"写作 100%"_qs);
  items.update();
  Recordset stored = store.open(statements::itemNamed(u"写作 100%"_qs));
  ASSERT_EQ(stored.count(), 1);
  EXPECT_EQ(stored.text(u"HDBH"), items.text(u"HDBH"));
  EXPECT_EQ(stored.number(u"FRGB"), 255);
  items.moveTo(1);
  items.remove();
  EXPECT_EQ(items.text(u"HDBH"), u"003"_qs);
  items.remove();
  EXPECT_TRUE(items.atEnd());
  EXPECT_EQ(count(u"HD"_qs), 1);
}

TEST_F(RecordsetTest, OnlyARowOfOneTableThatIsStillAsItWasReadIsChanged) {
  Recordset items = store.open(statements::allItems());
  items.edit();
  items.set(u"HDMC", u"改名"_qs);
  // The row goes and its number is given to another one.
  builder.sql(u"DELETE FROM HD"_qs).item(u"009"_qs, u"别的活动"_qs);
  EXPECT_EQ(faultOf([&] { items.update(); }), StoreFault::RowChanged);
  EXPECT_EQ(faultOf([&] { items.remove(); }), StoreFault::RowChanged);
  EXPECT_EQ(store.open(u"HD"_qs).text(u"HDMC"), u"别的活动"_qs);
  for (const Query& query :
       {statements::minutesByCategory(kMonday, kMonday), Query(u"SELECT HDBH FROM HD"_qs)}) {
    Recordset some = store.open(query);
    EXPECT_EQ(faultOf([&] { some.addNew(); }), StoreFault::NotUpdatable);
    EXPECT_EQ(faultOf([&] { some.remove(); }), StoreFault::NotUpdatable);
  }
}

TEST_F(RecordsetTest, ACursorReadsEveryRowOnceThroughOtherWorkOfItsStore) {
  Recordset opened = store.open(u"hd"_qs);
  RowCursor cursor = store.readOnce(u"hd"_qs);
  EXPECT_EQ(faultOf([&] { cursor.text(0); }), StoreFault::NoCurrentRow);
  QStringList numbers;
  while (cursor.next()) {
    numbers.append(cursor.text(u"hdbh"));
    EXPECT_EQ(count(u"hd"_qs), 3) << "the same statement, open twice";
    EXPECT_EQ(opened.count(), 3) << "opened before the cursor began";
    store.execute(statements::deleteMemos());
    for (int i = 0; i < 100; ++i) {  // more statements than are kept
      EXPECT_EQ(count(u"SELECT * FROM HD WHERE SFWC=%1"_qs.arg(i + 2)), 0);
    }
  }
  EXPECT_EQ(numbers, QStringList({u"001"_qs, u"002"_qs, u"003"_qs}));
  EXPECT_FALSE(cursor.next());
  EXPECT_EQ(faultOf([&] { cursor.number(3); }), StoreFault::NoCurrentRow);
}

}  // namespace
}  // namespace vellora
