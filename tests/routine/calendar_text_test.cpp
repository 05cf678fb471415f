#include "routine/calendar_text.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(CalendarText, PadsDatesAndTimesToTheirFixedForms) {
  const QDate day(2007, 3, 5);
  EXPECT_EQ(isoDate(day), u"2007-03-05"_qs);
  EXPECT_EQ(longDate(day), u"2007年3月5日"_qs);
  EXPECT_EQ(monthAndDay(day), u"03月05日"_qs);
  EXPECT_EQ(shortTime(QTime(8, 5, 59)), u"08:05"_qs);
  EXPECT_EQ(blockHours(QTime(8, 0), QTime(9, 30)), u"08:00-09:30"_qs);
}

TEST(CalendarText, AgreesWithTheIsoFormOverManyYears) {
  for (QDate day(1, 1, 1); day.year() < 9999; day = day.addDays(97)) {
    ASSERT_EQ(isoDate(day), day.toString(Qt::ISODate));
  }
}

TEST(CalendarText, NamesEachWeekdayInChinese) {
  const QString names[]{u"星期日"_qs, u"星期一"_qs, u"星期二"_qs, u"星期三"_qs,
                        u"星期四"_qs, u"星期五"_qs, u"星期六"_qs};
  const QDate sunday(2007, 3, 4);
  for (int i = 0; i < 14; ++i) EXPECT_EQ(weekdayName(sunday.addDays(i)), names[i % 7]);
}

TEST(CalendarText, GivesNoTextForNoDateOrTime) {
  EXPECT_TRUE(isoDate(QDate()).isEmpty());
  EXPECT_TRUE(longDate(QDate()).isEmpty());
  EXPECT_TRUE(weekdayName(QDate()).isEmpty());
  EXPECT_TRUE(shortTime(QTime()).isEmpty());
}

TEST(CalendarText, MeasuresBlocksByHoursAndMinutesAlone) {
  EXPECT_EQ(blockMinutes(QTime(8, 0, 59), QTime(9, 30, 1)), 90);
  EXPECT_EQ(blockMinutes(QTime(9, 30), QTime(8, 0)), -90);
}

}  // namespace vellora
