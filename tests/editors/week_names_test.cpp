#include "schedule/week_names.h"

#include "sheet_texts.h"
#include "support/schedule_builder.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

using test::filledRows;
using test::rowText;
using test::typeRow;

const QDate kMonday(2007, 3, 5);

class WeekNamesTest : public testing::Test {
 protected:
  WeekNamesTest() { setUpWeekNames(sheet_); }

  test::ScheduleBuilder schedule_;
  ScheduleStore store_ = schedule_.store();
  Sheet sheet_;
};

}  // namespace

TEST_F(WeekNamesTest, ListsRangesByFirstDayWithOneEmptyRowOrSixty) {
  LoadWeekNames(store_, sheet_);
  EXPECT_EQ(sheet_.Rows(), 60);
  schedule_.weekName(kMonday.addDays(7), kMonday.addDays(13), u"第二周"_qs)
      .weekName(kMonday, kMonday.addDays(6), u"第一周"_qs);
  typeRow(sheet_, 2, {u"不留"_qs});
  LoadWeekNames(store_, sheet_);
  EXPECT_EQ(sheet_.Rows(), 3);
  EXPECT_EQ(filledRows(sheet_),
            QStringList({u"2007-03-05|2007-03-11|第一周"_qs, u"2007-03-12|2007-03-18|第二周"_qs}));
  EXPECT_EQ(rowText(sheet_, kHeadingRow), u"开始时间|结束时间|本周命名"_qs);
}

TEST_F(WeekNamesTest, SavesRangesThatOverlapOrAreReversedButNoDayThatIsNone) {
  typeRow(sheet_, 0, {u"2007/3/12"_qs, u"2007年3月5日"_qs, u"倒过来"_qs});
  typeRow(sheet_, 1, {u"2007-03-05"_qs, u"2007-03-20"_qs, u"O'N #1#"_qs});
  typeRow(sheet_, 9, {u""_qs, u""_qs, u"没有日期"_qs});
  SaveWeekNames(store_, sheet_);
  typeRow(sheet_, 9, {u"2007-03-05"_qs, u"2007-02-30"_qs});
  EXPECT_THROW(SaveWeekNames(store_, sheet_), CellRefused);
  LoadWeekNames(store_, sheet_);
  EXPECT_EQ(filledRows(sheet_),
            QStringList({u"2007-03-05|2007-03-20|O'N #1#"_qs, u"2007-03-12|2007-03-05|倒过来"_qs}));
}

TEST_F(WeekNamesTest, AddsAWeekToTheFirstRowWithoutAFirstDay) {
  typeRow(sheet_, 0, {u"2007-02-26"_qs, u"2007-03-04"_qs, u"一"_qs});
  typeRow(sheet_, 1, {u"2007-03-05"_qs, u"2007-03-11"_qs});
  typeRow(sheet_, 2, {u""_qs, u"旧"_qs, u"已有名字"_qs});
  EXPECT_EQ(addWeek(sheet_, 0, QDate(2007, 12, 27)), 2);
  EXPECT_EQ(rowText(sheet_, 2), u"2007-12-27|2008-01-02|已有名字"_qs);
  EXPECT_EQ(addWeek(sheet_, 30, kMonday), 30) << "rows above the current one are left alone";
  sheet_.SetRows(3);
  EXPECT_EQ(addWeek(sheet_, -1, kMonday), 3) << "a row is appended when each has a first day";
  EXPECT_EQ(sheet_.Rows(), 5) << "an empty row follows";
}

TEST_F(WeekNamesTest, ContinuesAWeekThroughTenRows) {
  sheet_.SetRows(5);
  typeRow(sheet_, 1, {u"2007/3/5"_qs, u"2007-03-07"_qs, u"短周"_qs});
  typeRow(sheet_, 2, {u"2001-01-01"_qs, u"2001-01-01"_qs, u"名字留下"_qs});
  EXPECT_EQ(addFollowingWeeks(sheet_, 1), 11);
  EXPECT_EQ(sheet_.Rows(), 13);
  EXPECT_EQ(rowText(sheet_, 1), u"2007/3/5|2007-03-07|短周"_qs);
  EXPECT_EQ(rowText(sheet_, 2), u"2007-03-12|2007-03-18|名字留下"_qs);
  EXPECT_EQ(rowText(sheet_, 11), u"2007-05-14|2007-05-20|"_qs);
  sheet_.SetCellText(kWeekStartCol, 12, u"9999-10-16"_qs);
  EXPECT_EQ(rowText(sheet_, addFollowingWeeks(sheet_, 12)), u"9999-12-25|9999-12-31|"_qs);
}

TEST_F(WeekNamesTest, ContinuesNothingWithoutAFirstDay) {
  const Sheet before = sheet_;
  EXPECT_EQ(addFollowingWeeks(sheet_, 3), 3);
  EXPECT_EQ(addFollowingWeeks(sheet_, -1), -1);
  EXPECT_EQ(sheet_.revision(), before.revision());
  for (const auto& text : {u"三月五日"_qs, u"9999-10-17"_qs}) {
    sheet_.SetCellText(kWeekStartCol, 3, text);
    EXPECT_THROW(addFollowingWeeks(sheet_, 3), CellRefused);
    EXPECT_EQ(filledRows(sheet_), QStringList(text + u"||"));
  }
}

TEST_F(WeekNamesTest, ACarriedNameHidesNoRowThatIsGone) {
  const TableRows stored{{u"2007-03-05"_qs, u"2007-03-11"_qs, u"第一周"_qs},
                         {u"2007-03-12"_qs, u"2007-03-18"_qs, u"第二周"_qs}};
  sheet_.SetRows(4);
  sheet_.SetRowTexts(1, stored[1]);
  sheet_.SetCellText(kWeekNameCol, 2, u"第二周"_qs);
  EXPECT_EQ(weekNameChanges(sheet_, stored).missing, 1);
  EXPECT_TRUE(weekNameChanges(sheet_, stored).rows.empty());
}

TEST_F(WeekNamesTest, CarriesANameOnlyIntoANamelessRow) {
  sheet_.SetRows(3);
  typeRow(sheet_, 0, {u""_qs, u""_qs, u"学期"_qs});
  carryNameDown(sheet_, 0, 1);
  EXPECT_EQ(rowText(sheet_, 1), u"||学期"_qs);
  EXPECT_EQ(sheet_.Rows(), 3);
  sheet_.SetCellText(kWeekNameCol, 0, u"别的"_qs);
  carryNameDown(sheet_, 0, 1);
  EXPECT_EQ(rowText(sheet_, 1), u"||学期"_qs);
  carryNameDown(sheet_, -1, 2);
  EXPECT_EQ(rowText(sheet_, 2), u"||"_qs);
  EXPECT_EQ(sheet_.Rows(), 4) << "an empty row follows the last one entered";
}

}  // namespace vellora
