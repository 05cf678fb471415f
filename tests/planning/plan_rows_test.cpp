#include "planning_fixture.h"

namespace vellora {

using test::kMonday;
using PlanRows = test::PlanningTest;

TEST_F(PlanRows, ReadDatesAsPeopleTypeThem) {
  struct Case {
    QString cell;
    QDate date;
  };
  for (const auto& [cell, date] : std::initializer_list<Case>{
           {planDateCell(kMonday), kMonday},
           {u"2007-03-05"_qs, kMonday},
           {u"2007-3-5\r星期一"_qs, kMonday},
           {u"２００７-３-５"_qs, kMonday},
           {u"2007年12月15日"_qs, QDate(2007, 12, 15)},
           {u"2007-02-30"_qs, QDate()},
           {u"3-5"_qs, QDate()},
           {u"星期一"_qs, QDate()},
           {u"   "_qs, QDate()},
           {u""_qs, QDate()},
       }) {
    sheet_.SetCellText(kPlanDate, 0, cell);
    EXPECT_EQ(planDate(sheet_, 0).value_or(QDate()), date) << cell.toStdString();
  }
}

TEST_F(PlanRows, PlacingKeepsRequirementAndLevel) {
  fillRow(0, u""_qs, u""_qs, u"旧的"_qs, u"第一章"_qs, u"3"_qs);
  placePlanRow(sheet_, 0, kMonday, *TimeBlockList(*store_).find(u"002"_qs), u"读书"_qs);
  EXPECT_EQ(row(0), u"2007-03-05/星期一|08:00-09:30/早读|读书|第一章|3"_qs);
  EXPECT_EQ(sheet_.CellTag(kPlanTime, 0), u"002"_qs);
}

TEST_F(PlanRows, ADuplicateStandsBelowWithItsHiddenBlock) {
  fillRow(3, u"2007-03-05"_qs, u"002"_qs, u"读书"_qs, u"第一章"_qs, u"3"_qs);
  fillRow(4, u"2007-03-06"_qs, u"001"_qs, u"读书"_qs);
  sheet_.SetCellColors(kPlanActivity, 3, kRed, kWhite);
  duplicatePlanRow(sheet_, 3);
  EXPECT_EQ(row(4), row(3));
  EXPECT_EQ(sheet_.CellTag(kPlanTime, 4), u"002"_qs);
  EXPECT_EQ(sheet_.StyleAt(kPlanActivity, 4).textColour, kRed);
  EXPECT_EQ(sheet_.CellTag(kPlanTime, 5), u"001"_qs);
}

TEST_F(PlanRows, OnlyTheLastRowGetsASpareRowBelow) {
  EXPECT_FALSE(keepSparePlanRow(sheet_, kSparePlanRows - 2));
  EXPECT_TRUE(keepSparePlanRow(sheet_, kSparePlanRows - 1));
  EXPECT_EQ(sheet_.Rows(), kSparePlanRows + 1);
  EXPECT_EQ(sheet_.StyleAt(kPlanRequirement, kSparePlanRows).align, kAlignCentred);
  EXPECT_EQ(sheet_.CellOption(kPlanRequirement, kSparePlanRows), 1);
}

TEST_F(PlanRows, ADateIsProposedOnlyInAnEmptyDateCell) {
  sheet_.SetCellText(kPlanDate, 1, u"2008-01-01"_qs);
  proposePlanDate(sheet_, kPlanDate, 0, kMonday);
  proposePlanDate(sheet_, kPlanDate, 1, kMonday);
  proposePlanDate(sheet_, kPlanRequirement, 2, kMonday);
  EXPECT_EQ(row(0), u"2007-03-05||||"_qs);
  EXPECT_EQ(row(1), u"2008-01-01||||"_qs);
  EXPECT_EQ(row(2), u"||||"_qs);
}

TEST_F(PlanRows, BlocksComeByStartAndTheFirstOfACodeIsFound) {
  builder_.block(u"002"_qs, u"23:00:00"_qs, u"23:30:00"_qs, u"重复"_qs);
  const TimeBlockList blocks(*store_);
  ASSERT_EQ(blocks.size(), 3);
  EXPECT_EQ(blocks.at(0)->line, u"08:00-09:30 早读"_qs);
  EXPECT_EQ(blocks.at(1)->code, u"001"_qs);
  EXPECT_EQ(blocks.find(u"002"_qs)->cell, u"08:00-09:30\r早读"_qs);
  EXPECT_EQ(blocks.find(u"2"_qs), nullptr);
  EXPECT_EQ(blocks.at(3), nullptr);
}

}  // namespace vellora
