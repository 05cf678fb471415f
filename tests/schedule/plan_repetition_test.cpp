#include "schedule/plan_repetition.h"

#include "schedule/plan_saving.h"
#include "schedule_fixture.h"

namespace vellora {

using test::kMonday;

class PlanRepetition : public test::ScheduleTest {
 protected:
  QString dates(int from, int count) const {
    QStringList dates;
    for (int i = from; i < from + count; ++i) dates << planDateText(sheet_, i);
    return dates.join(u' ');
  }
};

TEST_F(PlanRepetition, CopiesFollowInOrderAndPushTheOtherRowsDown) {
  struct Case {
    QString source;
    Repetition repetition;
    QString copies;
  };
  for (const auto& [source, repetition, copies] : std::initializer_list<Case>{
           {u"2007-03-05"_qs, {3, 1}, u"2007-03-06 2007-03-07 2007-03-08"_qs},
           {u"2007-03-05"_qs, {2, 7}, u"2007-03-12 2007-03-19"_qs},
           {u"2007-12-31"_qs, {1, 1}, u"2008-01-01"_qs},
           {u"2008-2-28"_qs, {2, 1}, u"2008-02-29 2008-03-01"_qs},
           {u"9999-12-20"_qs, {9, 7}, u"9999-12-27"_qs},
           {u"2007-03-05"_qs, {0, 1}, QString()},
       }) {
    setUpPlanRows(sheet_);
    fillRow(2, source, u"002"_qs, u"读书"_qs, u"第一章"_qs, u"3"_qs);
    fillRow(3, u"下面"_qs, u"001"_qs, u"读书"_qs);
    const int count = copies.isEmpty() ? 0 : static_cast<int>(copies.count(u' ')) + 1;
    EXPECT_EQ(repeatPlanRow(*store_, sheet_, 2, repetition), 3 + count);
    EXPECT_EQ(dates(3, count), copies);
    EXPECT_EQ(dates(3 + count, 1), u"下面"_qs);
  }
}

TEST_F(PlanRepetition, ATakenBlockShowsItsHolderInRedAndIsKeptBySaving) {
  builder_.plan(kMonday.addDays(1), u"002"_qs, u"跑步"_qs, u"五公里"_qs, 4)
      .plan(kMonday.addDays(2), u"002"_qs, u"读书"_qs, u"旧"_qs, 5)
      .plan(kMonday.addDays(3), u"001"_qs, u"别的块"_qs);
  fillRow(0, planDateCell(kMonday), u"002"_qs, u"读书"_qs, u"新"_qs, u"3"_qs);
  repeatPlanRow(*store_, sheet_, 0, {3, 1});
  EXPECT_EQ(row(1), u"2007-03-06/星期二||跑步|五公里|4"_qs);
  EXPECT_EQ(row(2), u"2007-03-07/星期三||读书|旧|5"_qs);
  EXPECT_EQ(row(3), u"2007-03-08/星期四||读书|新|3"_qs);
  EXPECT_EQ(sheet_.StyleAt(kPlanActivity, 1).textColour, kRed);
  EXPECT_EQ(sheet_.StyleAt(kPlanActivity, 2).textColour, kRed);
  EXPECT_EQ(sheet_.StyleAt(kPlanActivity, 3).textColour, kBlack);
  EXPECT_TRUE(writePlan(*store_, sheet_, u"读书"_qs, nullptr).taken.isEmpty());
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-05|002|读书|新|3"_qs, u"2007-03-06|002|跑步|五公里|4"_qs,
                         u"2007-03-07|002|读书|旧|5"_qs, u"2007-03-08|001|别的块|要求|1"_qs,
                         u"2007-03-08|002|读书|新|3"_qs}));
}

TEST_F(PlanRepetition, ARowWithoutActivityOrDateIsNotRepeated) {
  fillRow(0, u"2007-03-05"_qs, u"002"_qs, u""_qs);
  fillRow(1, u"2007-02-30"_qs, u"002"_qs, u"读书"_qs);
  for (const int source : {-1, 0, 1, 5, 500}) {
    EXPECT_EQ(repeatPlanRow(*store_, sheet_, source, {3, 1}), std::nullopt);
  }
  EXPECT_EQ(sheet_.Rows(), kSparePlanRows);
}

TEST(RepetitionCount, IsTheNumericValueWithAHalfRoundedToEven) {
  struct Case {
    const char16_t* text;
    int count;
  };
  for (const auto& [text, count] : std::initializer_list<Case>{{u"60", 60},
                                                               {u"2.5", 2},
                                                               {u"3.5", 4},
                                                               {u"7天", 7},
                                                               {u"-3", 0},
                                                               {u"", 0},
                                                               {u"99999999999", 2147483647}}) {
    EXPECT_EQ(repetitionCount(QString::fromUtf16(text)), count);
  }
}

TEST(WeekCount, StepsAndStaysWithinOneAndSixty) {
  struct Case {
    const char16_t* text;
    int change;
    const char16_t* result;
  };
  for (const auto& [text, change, result] : std::initializer_list<Case>{{u"8", 1, u"9"},
                                                                        {u"8", -1, u"7"},
                                                                        {u"60", 1, u"60"},
                                                                        {u"1", -1, u"1"},
                                                                        {u"", 0, u"1"},
                                                                        {u"x", 1, u"1"},
                                                                        {u"61", 0, u"60"},
                                                                        {u"5周", 0, u"5周"},
                                                                        {u"5周", 1, u"6"}}) {
    EXPECT_EQ(boundedWeeks(QString::fromUtf16(text), change), QString::fromUtf16(result));
  }
}

}  // namespace vellora
