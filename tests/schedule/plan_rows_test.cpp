#include "schedule_fixture.h"

namespace vellora {

using test::kMonday;
using PlanRows = test::ScheduleTest;

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

TEST_F(PlanRows, BlocksComeByStartAndTheFirstOfACodeIsFound) {
  builder_.block(u"002"_qs, u"23:00:00"_qs, u"23:30:00"_qs, u"重复"_qs)
      .block(u"003"_qs, u"21:00:00"_qs, u"22:00:00"_qs, u"晚间"_qs);
  const TimeBlockList blocks(*store_);
  ASSERT_EQ(blocks.size(), 4);
  EXPECT_EQ(blocks.at(0)->line, u"08:00-09:30 早读"_qs);
  EXPECT_EQ(blocks.at(1)->code, u"001"_qs);
  EXPECT_EQ(blocks.find(u"002"_qs)->cell, u"08:00-09:30\r早读"_qs);
  EXPECT_EQ(blocks.find(u"2"_qs), nullptr);
  EXPECT_EQ(blocks.at(4), nullptr);
  EXPECT_EQ(blocks.meant(u"20：00-21:00"_qs)->code, u"001"_qs);
  EXPECT_EQ(blocks.meant(u"晚间"_qs), nullptr) << "two have this name";
}

class PlanListing : public test::ScheduleTest {
 protected:
  QStringList list(const QString& activity) {
    return listEntries(*store_, sheet_, TimeBlockList(*store_), activity);
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

TEST_F(PlanListing, KeepsEntriesWhoseBlockIsGoneAndNamesEachOfThem) {
  builder_.plan(kMonday, u"009"_qs, u"读书"_qs).plan(kMonday.addDays(1), u"009"_qs, u"读书"_qs);
  EXPECT_EQ(list(u"读书"_qs), (QStringList{u"009"_qs, u"009"_qs}));
  EXPECT_EQ(row(0), u"2007-03-05/星期一||读书|要求|1"_qs);
  EXPECT_EQ(sheet_.CellTag(kPlanTime, 0), u"009"_qs);
}

}  // namespace vellora
