#include "schedule/day_plan.h"

#include "schedule_fixture.h"
#include "support/store_fault.h"

namespace vellora {

using test::kMonday;

class DayPlan : public test::ScheduleTest {
 protected:
  // Row 0 is block 002, row 1 block 001.
  void open(QDate date) {
    setUpDayRows(sheet_);
    layOutBlockRows(sheet_, TimeBlockList(*store_));
    showDayPlan(sheet_, date, SavedEntries(*store_, date), readOpenItems(*store_));
    asRead_ = SavedEntries(*store_, date);
  }
  QString save(bool overwrite = false) {
    const auto outcome = writeDayPlan(*store_, sheet_, kMonday, asRead_, overwrite);
    if (outcome.saved) {
      refreshDayPlan(sheet_, kMonday, asRead_, *outcome.saved, {});
      asRead_ = *outcome.saved;
    }
    return outcome.failure;
  }
  void type(int row, const QString& activity, const QString& requirement, const QString& level) {
    sheet_.SetCellText(kDayActivity, row, activity);
    sheet_.SetCellText(kDayRequirement, row, requirement);
    sheet_.SetCellText(kDayLevel, row, level);
  }

  SavedEntries asRead_;
};

TEST_F(DayPlan, ShowsEachBlockByStartWithItsFirstEntry) {
  builder_.item(u"1"_qs, u"读书"_qs, u"2-学习"_qs, 0, 200)
      .item(u"2"_qs, u"做完了"_qs, u"2-学习"_qs, 1, 300)
      .plan(kMonday, u"001"_qs, u"读书"_qs, u"第一章"_qs, 3)
      .plan(kMonday, u"001"_qs, u"第二个"_qs)
      .plan(kMonday, u"002"_qs, u"做完了"_qs);
  open(kMonday);
  EXPECT_EQ(row(0), u"08:00-09:30/早读|做完了|要求|1"_qs);
  EXPECT_EQ(row(1), u"20:00-21:00/晚间|读书|第一章|3"_qs);
  EXPECT_FALSE(sheet_.StyleAt(kDayActivity, 0).hasColours);
  EXPECT_EQ(sheet_.StyleAt(kDayLevel, 1).textColour, 200U);
  showDayPlan(sheet_, kMonday.addDays(1), {}, {});
  EXPECT_EQ(row(1), u"20:00-21:00/晚间|||"_qs);
}

TEST_F(DayPlan, SavingChangesAddsAndDeletesTheEntriesOfItsDate) {
  builder_.plan(kMonday, u"002"_qs, u"旧"_qs, u"旧"_qs, 9)
      .plan(kMonday, u"002"_qs, u"第二个"_qs)
      .plan(kMonday.addDays(1), u"001"_qs, u"别的日子"_qs);
  open(kMonday);
  type(0, u"自由文字"_qs, u""_qs, u"3级"_qs);
  type(1, u"读书"_qs, u"第一章"_qs, u"高"_qs);
  EXPECT_EQ(save(), QString());
  const QString otherDay = u"2007-03-06|001|别的日子|要求|1"_qs;
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-05|001|读书|第一章|0"_qs, u"2007-03-05|002|第二个|要求|1"_qs,
                         u"2007-03-05|002|自由文字||3"_qs, otherDay}));
  type(0, u""_qs, u"没有活动"_qs, u"2"_qs);
  EXPECT_EQ(save(), QString());
  EXPECT_EQ(saved(), (QStringList{u"2007-03-05|001|读书|第一章|0"_qs, otherDay}));
}

TEST_F(DayPlan, ARowThatCannotBeSavedIsNamedAndTheRowsAboveStaySaved) {
  builder_.plan(kMonday, u"001"_qs, u"旧"_qs, u"旧"_qs, 9);
  open(kMonday);
  type(0, u"读书"_qs, u"第一章"_qs, u"1"_qs);
  type(1, u"跑步"_qs, u"五公里"_qs, u"99999999999"_qs);
  const QString failure = save();
  EXPECT_TRUE(failure.startsWith(u"20:00-21:00 晚间：")) << failure.toStdString();
  EXPECT_TRUE(failure.contains(u"“等级”")) << failure.toStdString();
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-05|001|旧|旧|9"_qs, u"2007-03-05|002|读书|第一章|1"_qs}));
}

TEST_F(DayPlan, WritesOnlyWhatChangedAndAsksBeforeItOverwritesAnother) {
  builder_.plan(kMonday, u"001"_qs, u"旧"_qs).plan(kMonday, u"002"_qs, u"旧"_qs);
  open(kMonday);
  builder_.sql(u"UPDATE JH SET HDMC = '另一个' WHERE SJKH = '001'"_qs);
  type(0, u"读书"_qs, u""_qs, u"2"_qs);
  EXPECT_EQ(save(), QString());
  const QString other = u"2007-03-05|001|另一个|要求|1"_qs;
  EXPECT_EQ(saved(), (QStringList{other, u"2007-03-05|002|读书||2"_qs}));
  EXPECT_EQ(row(1), u"20:00-21:00/晚间|另一个|要求|1"_qs);
  builder_.sql(u"UPDATE JH SET HDMC = '又一个' WHERE SJKH = '002'"_qs);
  type(0, u"跑步"_qs, u""_qs, u"2"_qs);
  EXPECT_EQ(test::faultOf([&] { save(); }), StoreFault::RowChanged);
  EXPECT_EQ(saved().last(), u"2007-03-05|002|又一个||2"_qs);
  EXPECT_EQ(save(true), QString());
  EXPECT_EQ(saved(), (QStringList{other, u"2007-03-05|002|跑步||2"_qs}));
}

using DaySummary = test::ScheduleTest;

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

}  // namespace vellora
