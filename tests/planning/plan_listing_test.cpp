#include "planning_fixture.h"
#include "schedule/plan_rows.h"

namespace vellora {

using test::kMonday;

class PlanListing : public test::PlanningTest {
 protected:
  QStringList list(const QString& activity) {
    return listPlan(*store_, sheet_, TimeBlockList(*store_), activity);
  }
};

TEST_F(PlanListing, ShowsTheWholePlanByDateAndCodeAboveSpareRows) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第二章"_qs, 2)
      .plan(kMonday, u"001"_qs, u"读书"_qs, u"第一章"_qs, 1)
      .plan(kMonday.addDays(-1), u"002"_qs, u"读书"_qs, u"序"_qs, 0)
      .plan(kMonday, u"001"_qs, u"读书 "_qs);
  EXPECT_EQ(list(u"读书"_qs), QStringList());
  EXPECT_EQ(sheet_.Rows(), 3 + kSparePlanRows);
  EXPECT_EQ(row(0), u"2007-03-04/星期日|08:00-09:30/早读|读书|序|0"_qs);
  EXPECT_EQ(row(1), u"2007-03-05/星期一|20:00-21:00/晚间|读书|第一章|1"_qs);
  EXPECT_EQ(row(2), u"2007-03-05/星期一|08:00-09:30/早读|读书|第二章|2"_qs);
  EXPECT_EQ(row(3), u"||||"_qs);
}

TEST_F(PlanListing, ReplacesEveryRowThatTheGridHeld) {
  fillRow(0, u"2007-03-05"_qs, u"002"_qs, u"别的"_qs);
  sheet_.SetCellColors(kPlanActivity, 0, kRed, kWhite);
  list(u"没有计划"_qs);
  EXPECT_EQ(sheet_.Rows(), kSparePlanRows);
  EXPECT_EQ(row(0), u"||||"_qs);
  EXPECT_EQ(sheet_.CellTag(kPlanTime, 0), QString());
  EXPECT_FALSE(sheet_.StyleAt(kPlanActivity, 0).hasColours);
}

TEST_F(PlanListing, KeepsEntriesWhoseBlockIsGoneAndNamesEachOfThem) {
  builder_.plan(kMonday, u"009"_qs, u"读书"_qs).plan(kMonday.addDays(1), u"009"_qs, u"读书"_qs);
  EXPECT_EQ(list(u"读书"_qs), (QStringList{u"009"_qs, u"009"_qs}));
  EXPECT_EQ(row(0), u"2007-03-05/星期一||读书|要求|1"_qs);
  EXPECT_EQ(sheet_.CellTag(kPlanTime, 0), u"009"_qs);
}

TEST_F(PlanListing, TakesQuotesAndBlanksInNamesAsTheyAre) {
  const QString name = u" O'Neil [1] #%' "_qs;
  builder_.plan(kMonday, u"001"_qs, name).plan(kMonday, u"002"_qs, name.trimmed());
  list(name);
  EXPECT_EQ(sheet_.Rows(), 1 + kSparePlanRows);
  EXPECT_EQ(sheet_.GetCellText(kPlanActivity, 0), name);
}

TEST_F(PlanListing, AFailureLeavesTheGridAsItWas) {
  fillRow(0, u"2007-03-05"_qs, u"002"_qs, u"读书"_qs);
  const TimeBlockList blocks(*store_);
  builder_.sql(u"DROP TABLE JH"_qs);
  EXPECT_THROW(listPlan(*store_, sheet_, blocks, u"读书"_qs), StoreError);
  EXPECT_EQ(sheet_.CellTag(kPlanTime, 0), u"002"_qs);
}

}  // namespace vellora
