#include "store/schedule_store.h"

#include "store/dialect.h"
#include "store/statements.h"
#include "store/store_error.h"
#include "support/schedule_builder.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

using test::ScheduleBuilder;

const QDate kDay(2007, 3, 5);

class Catalogue : public ::testing::Test {
 protected:
  Catalogue() {
    builder.block(u"A"_qs, u"08:00:00"_qs, u"09:30:00"_qs)
        .block(u"B"_qs, u"06:00:00"_qs, u"06:20:00"_qs)
        .item(u"002"_qs, u"晨跑"_qs, u"3-运动"_qs)
        .item(u"001"_qs, u"O'Neil #1"_qs, u"1-工作"_qs, 1)
        .plan(kDay, u"A"_qs, u"晨跑"_qs)
        .plan(kDay, u"B"_qs, u"O'Neil #1"_qs)
        .plan(kDay.addDays(1), u"A"_qs, u"晨跑"_qs)
        .memo(kDay, u"第一行\n第二行"_qs)
        .weekName(kDay, kDay.addDays(6), u"开学周"_qs);
  }

  ScheduleBuilder builder;
  ScheduleStore store{builder.path()};
};

TEST_F(Catalogue, EverySelectStatementFindsItsRows) {
  using namespace statements;
  const struct {
    QString statement;
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
      {plansOn(kDay), 2},
      {planOfBlock(kDay, u"A"_qs), 1},
      {plansOfActivity(u"晨跑"_qs), 2},
      {planOfActivityInBlock(u"晨跑"_qs, kDay, u"A"_qs), 1},
      {planOfActivityInBlock(u"晨跑"_qs, kDay, u"B"_qs), 0},
      {allPlans(), 3},
      {memoOn(kDay), 1},
      {weekNamesAt(kDay.addDays(6)), 1},
      {weekNamesAt(kDay.addDays(7)), 0},
      {weekNamesByStart(), 1},
      {allWeekNames(), 1},
      {skinSetting(), 0},
      {minutesByCategory(kDay, kDay.addDays(1)), 2},
      {minutesByActivity(kDay, kDay), 2},
  };
  for (const auto& [statement, rows] : cases) {
    EXPECT_EQ(store.open(statement).count(), rows) << statement.toStdString();
  }
}

}  // namespace
}  // namespace vellora
