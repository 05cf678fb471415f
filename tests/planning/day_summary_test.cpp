#include "planning_fixture.h"
#include "schedule/day_plan.h"

namespace vellora {

using test::kMonday;
using DaySummary = test::PlanningTest;

TEST_F(DaySummary, NamesEveryBlockAndItsActivityWhateverActivityItIs) {
  builder_.plan(kMonday, u"001"_qs, u"读书"_qs)
      .plan(kMonday, u"002"_qs, u"跑步"_qs)
      .plan(kMonday, u"00'9"_qs, u"散步"_qs)
      .plan(kMonday.addDays(1), u"001"_qs, u"明天的"_qs);
  const QString text = daySummary(*store_, kMonday);
  EXPECT_TRUE(text.startsWith(u"2007-03-05 星期一\r\n\r\n")) << text.toStdString();
  EXPECT_TRUE(text.contains(u"20:00-21:00 晚间\r\n  读书\r\n")) << text.toStdString();
  EXPECT_TRUE(text.contains(u"08:00-09:30 早读\r\n  跑步\r\n")) << text.toStdString();
  EXPECT_TRUE(text.contains(u"\r\n00'9\r\n  散步\r\n")) << text.toStdString();
  EXPECT_EQ(text.count(u"\r\n"), 8);
}

TEST_F(DaySummary, AFreeDayIsItsHeadingAndAnEmptyLine) {
  EXPECT_EQ(daySummary(*store_, kMonday), u"2007-03-05 星期一\r\n\r\n"_qs);
}

}  // namespace vellora
