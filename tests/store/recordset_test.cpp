#include "store/recordset.h"

#include "store/statements.h"
#include "store/store_error.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

using test::faultOf;
using test::ScheduleBuilder;

using test::kMonday;

class RecordsetTest : public ::testing::Test {
 protected:
  RecordsetTest() {
    builder.item(u"001"_qs, u"晨跑"_qs)
        .item(u"002"_qs, u"O'Neil"_qs, u"2-学习"_qs, 1)
        .item(u"003"_qs, u"读书"_qs);
  }

  ScheduleBuilder builder;
  ScheduleStore store{builder.path()};
};

TEST_F(RecordsetTest, WalksFromTheFirstRowToTheEndAndBack) {
  Recordset items = store.open(statements::allItems());
  QStringList numbers;
  for (; !items.atEnd(); items.moveNext()) numbers.append(items.text(u"hdbh"));
  EXPECT_EQ(numbers, QStringList({u"001"_qs, u"002"_qs, u"003"_qs}));
  EXPECT_EQ(faultOf([&] { items.text(u"HDBH"); }), StoreFault::NoCurrentRow);
  items.moveFirst();
  EXPECT_EQ(items.text(u"HDBH"), u"001"_qs);
  items.moveLast();
  EXPECT_EQ(items.text(u"HDBH"), u"003"_qs);
  items.moveTo(-1);
  EXPECT_TRUE(items.atEnd());
}

TEST_F(RecordsetTest, FindsTheFirstRowOrStaysWhereItWas) {
  Recordset items = store.open(u"HD"_qs);
  EXPECT_TRUE(items.findFirst(statements::itemNameIs(u"O'Neil"_qs)));
  EXPECT_FALSE(items.noMatch());
  EXPECT_EQ(items.text(u"HDBH"), u"002"_qs);
  EXPECT_FALSE(items.findFirst(statements::itemNameIs(u"o'neil"_qs)));
  EXPECT_TRUE(items.noMatch());
  EXPECT_EQ(items.text(u"HDBH"), u"002"_qs);
  EXPECT_TRUE(items.findFirst(u"[hdlb] = '1-工作' AND HD.SFWC=0 and HDBH='003'"_qs));
  EXPECT_EQ(items.position(), 2);
}

TEST_F(RecordsetTest, AnAddedRowIsCurrentAndPartOfTheSet) {
  for (const bool readBefore : {false, true}) {
    Recordset items = store.open(statements::allItems());
    const qsizetype before = readBefore ? items.count() : -1;
    items.addNew();
    items.set(u"hdmc", u"新活动"_qs);
    items.update();
    EXPECT_EQ(items.text(u"HDMC"), u"新活动"_qs);
    EXPECT_EQ(items.value(u"SFWC"), QVariant(qint64{0})) << "the column's default";
    EXPECT_FALSE(items.value(u"FRGB").isValid());
    EXPECT_EQ(items.position(), items.count() - 1);
    if (readBefore) {
      EXPECT_EQ(items.count(), before + 1);
    }
  }
  EXPECT_EQ(store.open(u"HD"_qs).count(), 5);
}

TEST_F(RecordsetTest, ARowThatMissesTheConditionStillJoinsTheSetItWasAddedTo) {
  Recordset plans = store.open(statements::plansOn(kMonday));
  plans.addNew();
  plans.set(u"RQ", kMonday.addDays(1));
  plans.update();
  EXPECT_EQ(plans.count(), 1);
  EXPECT_EQ(plans.date(u"RQ"), kMonday.addDays(1));
}

TEST_F(RecordsetTest, AnEditChangesOnlyTheColumnsThatWereSet) {
  Recordset items = store.open(statements::openItems());
  items.findFirst(statements::itemNumberIs(u"003"_qs));
  items.edit();
  items.set(u"HDMC", u"写作"_qs);
  items.set(u"HDMC", u"写作 100%"_qs);
  items.update();
  EXPECT_EQ(items.text(u"HDMC"), u"写作 100%"_qs);
  Recordset stored = store.open(statements::itemNamed(u"写作 100%"_qs));
  ASSERT_EQ(stored.count(), 1);
  EXPECT_EQ(stored.text(u"HDBH"), u"003"_qs);
  EXPECT_EQ(stored.number(u"FRGB"), 255);
}

TEST_F(RecordsetTest, RemovingMakesTheNextRowCurrent) {
  Recordset items = store.open(statements::allItems());
  items.moveNext();
  items.remove();
  EXPECT_EQ(items.text(u"HDBH"), u"003"_qs);
  items.remove();
  EXPECT_TRUE(items.atEnd());
  EXPECT_EQ(store.open(u"HD"_qs).count(), 1);
}

TEST_F(RecordsetTest, ARowThatChangedMeanwhileIsNotOverwritten) {
  Recordset items = store.open(statements::allItems());
  items.edit();
  items.set(u"HDMC", u"改名"_qs);
  // The row goes and its number is given to another one.
  builder.sql(u"DELETE FROM HD"_qs).item(u"009"_qs, u"别的活动"_qs);
  EXPECT_EQ(faultOf([&] { items.update(); }), StoreFault::RowChanged);
  EXPECT_EQ(faultOf([&] { items.remove(); }), StoreFault::RowChanged);
  EXPECT_EQ(store.open(u"HD"_qs).text(u"HDMC"), u"别的活动"_qs);
}

TEST_F(RecordsetTest, ARefusedValueLeavesTheEditGoing) {
  Recordset items = store.open(statements::allItems());
  items.edit();
  items.set(u"HDMC", u"新名"_qs);
  EXPECT_EQ(faultOf([&] { items.set(u"FRGB", u"红"_qs); }), StoreFault::NotANumber);
  EXPECT_EQ(faultOf([&] { items.set(u"没有", 1); }), StoreFault::ColumnMissing);
  items.update();
  EXPECT_EQ(items.text(u"HDMC"), u"新名"_qs);
}

TEST_F(RecordsetTest, RowsOfSeveralTablesCannotBeChanged) {
  Recordset sums = store.open(statements::minutesByCategory(kMonday, kMonday));
  EXPECT_EQ(faultOf([&] { sums.addNew(); }), StoreFault::NotUpdatable);
  Recordset some = store.open(u"SELECT HDBH FROM HD"_qs);
  EXPECT_EQ(faultOf([&] { some.edit(); }), StoreFault::NotUpdatable);
  EXPECT_EQ(faultOf([&] { some.remove(); }), StoreFault::NotUpdatable);
}

TEST_F(RecordsetTest, ACursorReadsEveryRowOnceThroughSavesOfItsOwnStore) {
  Recordset opened = store.open(u"hd"_qs);
  RowCursor cursor = store.readOnce(u"hd"_qs);
  EXPECT_EQ(faultOf([&] { cursor.text(0); }), StoreFault::NoCurrentRow);
  EXPECT_EQ(cursor.columnName(1), u"HDMC"_qs);
  EXPECT_EQ(cursor.columnKind(3), ColumnKind::Int16);
  QStringList names;
  while (cursor.next()) {
    names.append(cursor.text(u"hdmc"));
    EXPECT_EQ(store.open(u"hd"_qs).count(), 3) << "the same statement, open twice";
    EXPECT_EQ(opened.count(), 3) << "opened before the cursor began";
    store.execute(statements::deleteMemos());
    for (int i = 0; i < 100; ++i) {  // more statements than are kept
      EXPECT_TRUE(store.open(u"SELECT * FROM HD WHERE SFWC=%1"_qs.arg(i + 2)).isEmpty());
    }
  }
  EXPECT_EQ(names, QStringList({u"晨跑"_qs, u"O'Neil"_qs, u"读书"_qs}));
  EXPECT_FALSE(cursor.next());
  EXPECT_EQ(faultOf([&] { cursor.number(3); }), StoreFault::NoCurrentRow);
}

TEST_F(RecordsetTest, KeepsAMillionCharactersAndEveryRowOfALargeTable) {
  const QString longText(1'000'000, u'长');
  builder.memo(kMonday, longText).fullPlan(kMonday, 200, 50, 7);
  EXPECT_EQ(store.open(statements::memoOn(kMonday)).text(u"Memo"), longText);
  Recordset plans = store.open(statements::allPlans());
  ASSERT_EQ(plans.count(), 10'000);
  plans.moveTo(9'999);
  EXPECT_EQ(plans.date(u"RQ"), kMonday.addDays(199));
  EXPECT_EQ(plans.text(u"SJKH"), u"050"_qs);
}

}  // namespace
}  // namespace vellora
