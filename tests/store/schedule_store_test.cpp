#include "store/schedule_store.h"

#include "store/dialect.h"
#include "store/statements.h"
#include "store/store_error.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

using test::descriptionOf;
using test::faultOf;
using test::ScheduleBuilder;

using test::kMonday;

class Catalogue : public ::testing::Test {
 protected:
  Catalogue() {
    builder.block(u"A"_qs, u"08:00:00"_qs, u"09:30:00"_qs)
        .block(u"B"_qs, u"06:00:00"_qs, u"06:20:00"_qs)
        .item(u"002"_qs, u"晨跑"_qs, u"3-运动"_qs)
        .item(u"001"_qs, u"O'Neil #1"_qs, u"1-工作"_qs, 1)
        .plan(kMonday, u"A"_qs, u"晨跑"_qs)
        .plan(kMonday, u"B"_qs, u"O'Neil #1"_qs)
        .plan(kMonday.addDays(1), u"A"_qs, u"晨跑"_qs)
        .memo(kMonday, u"第一行\n第二行"_qs)
        .weekName(kMonday, kMonday.addDays(6), u"开学周"_qs);
  }

  ScheduleBuilder builder;
  ScheduleStore store{builder.path()};
};

TEST_F(Catalogue, EverySelectStatementFindsItsRows) {
  using namespace statements;
  const struct {
    Query statement;
    qsizetype rows;
  } cases[] = {
      {allItems(), 2},
      {itemsOfCategory(u"3-运动"_qs), 1},
      {openItems(), 1},
      {itemNamed(u"O'Neil #1"_qs), 1},
      {blocksByStart(), 2},
      {blocksByCode(), 2},
      {blockWithCode(u"B"_qs), 1},
      {allBlocks(), 2},
      {plansOn(kMonday), 2},
      {planOfBlock(kMonday, u"A"_qs), 1},
      {plansOfActivity(u"晨跑"_qs), 2},
      {planOfActivityInBlock(u"晨跑"_qs, kMonday, u"A"_qs), 1},
      {planOfActivityInBlock(u"晨跑"_qs, kMonday, u"B"_qs), 0},
      {allPlans(), 3},
      {memoOn(kMonday), 1},
      {weekNamesAt(kMonday.addDays(6)), 1},
      {weekNamesAt(kMonday.addDays(7)), 0},
      {weekNamesByStart(), 1},
      {allWeekNames(), 1},
      {skinSetting(), 0},
      {minutesByCategory(kMonday, kMonday.addDays(1)), 2},
      {minutesByActivity(kMonday, kMonday), 2},
  };
  for (const auto& [statement, rows] : cases) {
    EXPECT_EQ(store.open(statement).count(), rows) << statement.text().toStdString();
  }
}

TEST_F(Catalogue, DeletesOnlyTheRowsThatItNames) {
  using namespace statements;
  EXPECT_EQ(store.execute(deletePlanOfBlock(kMonday, u"B"_qs)), 1);
  EXPECT_EQ(store.execute(deletePlanOfBlock(kMonday, u"B"_qs)), 0);
  EXPECT_EQ(store.execute(deletePlansOfActivity(u"晨跑 "_qs)), 0);
  EXPECT_EQ(store.execute(deletePlansOfActivity(u"晨跑"_qs)), 2);
  for (const Query& statement : {deleteMemos(), deleteWeekNames(), deleteSkinSetting()}) {
    store.execute(statement);
  }
  EXPECT_TRUE(store.open(memoOn(kMonday)).isEmpty());
  EXPECT_TRUE(store.open(allWeekNames()).isEmpty());
  EXPECT_EQ(store.open(allBlocks()).count(), 2);
  EXPECT_EQ(store.execute(deleteBlocks()), 2);
  EXPECT_EQ(store.execute(deleteAllFrom(u"HD"_qs)), 2);
}

TEST_F(Catalogue, SortsAsItsWindowsShowTheRows) {
  using namespace statements;
  EXPECT_EQ(store.open(blocksByStart()).text(u"SJKH"), u"B"_qs);
  EXPECT_EQ(store.open(blocksByCode()).text(u"SJKH"), u"A"_qs);
  Recordset plan = store.open(plansOfActivity(u"晨跑"_qs));
  EXPECT_EQ(plan.date(u"RQ"), kMonday);
  plan.moveLast();
  EXPECT_EQ(plan.date(u"RQ"), kMonday.addDays(1));
}

TEST_F(Catalogue, SumsThePlannedMinutesOfEveryEntryThatHasBlockAndItem) {
  builder.plan(kMonday, u"C"_qs, u"晨跑"_qs).plan(kMonday, u"A"_qs, u"不在目录"_qs);
  Recordset categories = store.open(statements::minutesByCategory(kMonday, kMonday.addDays(1)));
  ASSERT_EQ(categories.count(), 2);
  EXPECT_EQ(categories.text(u"HDLB"), u"1-工作"_qs);
  EXPECT_EQ(categories.number(u"SJ"), 20);
  categories.moveNext();
  EXPECT_EQ(categories.number(u"SJ"), 180);
  Recordset activities = store.open(statements::minutesByActivity(kMonday, kMonday.addDays(1)));
  activities.moveLast();
  EXPECT_EQ(activities.text(u"HDMC"), u"晨跑"_qs);
  EXPECT_EQ(activities.number(u"SJ"), 180);
  EXPECT_EQ(activities.number(u"CS"), 2);
}

TEST_F(Catalogue, ReadsValuesByTheKindOfTheirColumn) {
  Recordset block = store.open(statements::blockWithCode(u"A"_qs));
  EXPECT_EQ(block.value(u"SJ0"), QVariant(QTime(8, 0)));
  EXPECT_EQ(block.time(u"sj1"), QTime(9, 30));
  EXPECT_FALSE(block.date(u"SJ0").isValid());
  EXPECT_EQ(store.open(statements::plansOn(kMonday)).value(u"RQ"), QVariant(kMonday));
  EXPECT_EQ(store.open(statements::memoOn(kMonday)).text(u"memo"), u"第一行\n第二行"_qs);
}

TEST(ScheduleStore, CopesWithNumberedRows) {
  ScheduleBuilder builder;
  builder.sql(u"DROP TABLE MM"_qs)
      .sql(
          u"CREATE TABLE MM (ID INTEGER PRIMARY KEY AUTOINCREMENT, KSRQ DATETIME, JSRQ DATETIME,"
          u" MM VARCHAR(255))"_qs);
  ScheduleStore store(builder.path());
  Recordset names = store.open(statements::allWeekNames());
  for (const QString& name : {u"第一周"_qs, u"第二周"_qs}) {
    names.addNew();
    names.set(u"KSRQ", kMonday);
    names.set(u"MM", name);
    names.update();
  }
  EXPECT_EQ(names.number(u"ID"), 2);
  names.edit();
  names.set(u"MM", u"改名"_qs);
  names.update();
  Recordset stored = store.open(statements::weekNamesByStart());
  EXPECT_EQ(stored.text(u"MM"), u"第一周"_qs);
  stored.moveNext();
  EXPECT_EQ(stored.text(u"MM"), u"改名"_qs);
}

}  // namespace
}  // namespace vellora
