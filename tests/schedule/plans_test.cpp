#include "schedule/day_plan.h"
#include "schedule/plan_repetition.h"
#include "schedule/plan_saving.h"
#include "schedule_fixture.h"

namespace vellora {
namespace {

using test::kMonday;

// A day of two blocks, by start 002 and 001.
class Plans : public test::ScheduleTest {
 protected:
  Plans() {
    builder_.block(u"002"_qs, u"08:00:00"_qs, u"09:30:00"_qs, u"早读"_qs)
        .block(u"001"_qs, u"20:00:00"_qs, u"21:00:00"_qs, u"晚间"_qs);
    setUpPlanRows(sheet_);
  }
};

class DayPlan : public Plans {
 protected:
  void open() {
    setUpDayRows(sheet_);
    layOutBlockRows(sheet_, TimeBlockList(store_));
    asRead_ = SavedEntries(store_, kMonday);
    showDayPlan(sheet_, kMonday, asRead_, readOpenItems(store_));
  }
  QString save(bool overwrite = false) {
    const auto outcome = writeDayPlan(store_, sheet_, kMonday, asRead_, overwrite);
    if (outcome.saved) {
      refreshDayPlan(sheet_, kMonday, asRead_, *outcome.saved, {});
      asRead_ = *outcome.saved;
    }
    return outcome.failure;
  }
  // Activity, requirement and level of a row.
  void type(int row, const QString& line) { typeRow(row, line, kDayActivity); }

  SavedEntries asRead_;
};

// The plan of 读书.
class ActivityPlan : public Plans {
 protected:
  QStringList list() {
    QStringList missing = listEntries(store_, sheet_, TimeBlockList(store_), u"读书"_qs);
    asRead_ = SavedEntries(store_, u"读书"_qs);
    return missing;
  }
  PlanSaveOutcome save(const WorkProgress& progress = {}) {
    return writePlan(store_, sheet_, u"读书"_qs, nullptr, progress);
  }
  Changes changes() { return planChanges(sheet_, u"读书"_qs, asRead_, {}); }
  // Three entries of the activity, listed, then changed in the grid.
  void changeAListedPlan() {
    for (int day = 0; day < 3; ++day) builder_.plan(kMonday.addDays(day), u"002"_qs, u"读书"_qs);
    list();
    for (int row = 0; row < 3; ++row) sheet_.SetCellText(kPlanRequirement, row, u"改"_qs);
  }
  QString dates(int from, int count) const {
    QStringList dates;
    for (int i = from; i < from + count; ++i) dates << planDateText(sheet_, i);
    return dates.join(u' ');
  }

  SavedEntries asRead_;
};

}  // namespace

TEST_F(DayPlan, SavingChangesAddsAndDeletesTheEntriesOfItsDate) {
  builder_.plan(kMonday, u"002"_qs, u"旧"_qs, u"旧"_qs, 9)
      .plan(kMonday, u"002"_qs, u"第二个"_qs)
      .plan(kMonday.addDays(1), u"001"_qs, u"别的日子"_qs);
  open();
  type(0, u"自由文字||3级"_qs);
  type(1, u"读书|第一章|高"_qs);
  EXPECT_EQ(save(), QString());
  const QString otherDay = u"2007-03-06|001|别的日子|要求|1"_qs;
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-05|001|读书|第一章|0"_qs, u"2007-03-05|002|第二个|要求|1"_qs,
                         u"2007-03-05|002|自由文字||3"_qs, otherDay}));
  type(0, u"|没有活动|2"_qs);
  EXPECT_EQ(save(), QString());
  EXPECT_EQ(saved(), (QStringList{u"2007-03-05|001|读书|第一章|0"_qs, otherDay}));
  type(0, u"读书|第二章|1"_qs);
  type(1, u"跑步|五公里|99999999999"_qs);
  const QString failure = save();
  EXPECT_TRUE(failure.startsWith(u"20:00-21:00 晚间：")) << failure.toStdString();
  EXPECT_TRUE(failure.contains(u"“等级”")) << failure.toStdString();
  EXPECT_EQ(saved(), (QStringList{u"2007-03-05|001|读书|第一章|0"_qs,
                                  u"2007-03-05|002|读书|第二章|1"_qs, otherDay}))
      << "the rows above a bad one are saved";
}

TEST_F(DayPlan, WritesOnlyWhatChangedAndAsksBeforeItOverwritesAnother) {
  builder_.plan(kMonday, u"001"_qs, u"旧"_qs).plan(kMonday, u"002"_qs, u"旧"_qs);
  open();
  builder_.sql(u"UPDATE JH SET HDMC = '另一个' WHERE SJKH = '001'"_qs);
  type(0, u"读书||2"_qs);
  EXPECT_EQ(save(), QString());
  const QString other = u"2007-03-05|001|另一个|要求|1"_qs;
  EXPECT_EQ(saved(), (QStringList{other, u"2007-03-05|002|读书||2"_qs}));
  EXPECT_EQ(row(1), u"20:00-21:00/晚间|另一个|要求|1"_qs);
  builder_.sql(u"UPDATE JH SET HDMC = '又一个' WHERE SJKH = '002'"_qs);
  type(0, u"跑步||2"_qs);
  EXPECT_EQ(test::faultOf([&] { save(); }), StoreFault::RowChanged);
  EXPECT_EQ(saved().last(), u"2007-03-05|002|又一个||2"_qs);
  EXPECT_EQ(save(true), QString());
  EXPECT_EQ(saved(), (QStringList{other, u"2007-03-05|002|跑步||2"_qs}));
}

TEST_F(ActivityPlan, ListsByDateAndCodeAboveSpareRowsAndNamesEntriesWhoseBlockIsGone) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第二章"_qs, 2)
      .plan(kMonday, u"001"_qs, u"读书"_qs, u"第一章"_qs, 1)
      .plan(kMonday.addDays(-1), u"002"_qs, u"读书"_qs, u"序"_qs, 0)
      .plan(kMonday.addDays(1), u"009"_qs, u"读书"_qs)
      .plan(kMonday, u"001"_qs, u"读书 "_qs);
  EXPECT_EQ(list(), QStringList{u"009"_qs});
  EXPECT_EQ(sheet_.Rows(), 4 + kSparePlanRows);
  EXPECT_EQ(filledRows(), (QStringList{u"2007-03-04/星期日|08:00-09:30/早读|读书|序|0"_qs,
                                       u"2007-03-05/星期一|20:00-21:00/晚间|读书|第一章|1"_qs,
                                       u"2007-03-05/星期一|08:00-09:30/早读|读书|第二章|2"_qs,
                                       u"2007-03-06/星期二||读书|要求|1"_qs}));
  EXPECT_EQ(sheet_.CellTag(kPlanTime, 3), u"009"_qs);
}

TEST_F(ActivityPlan, ABlockIsFoundByCodeAndMeantByAnUnambiguousText) {
  builder_.block(u"002"_qs, u"23:00:00"_qs, u"23:30:00"_qs, u"重复"_qs)
      .block(u"003"_qs, u"21:00:00"_qs, u"22:00:00"_qs, u"晚间"_qs);
  const TimeBlockList blocks(store_);
  ASSERT_EQ(blocks.size(), 4);
  EXPECT_EQ(blocks.at(0)->line, u"08:00-09:30 早读"_qs);
  EXPECT_EQ(blocks.find(u"002"_qs)->cell, u"08:00-09:30\r早读"_qs) << "the first of a code";
  EXPECT_EQ(blocks.find(u"2"_qs), nullptr);
  EXPECT_EQ(blocks.at(4), nullptr);
  EXPECT_EQ(blocks.meant(u"20：00-21:00"_qs)->code, u"001"_qs);
  EXPECT_EQ(blocks.meant(u"晚间"_qs), nullptr) << "two have this name";
}

TEST_F(ActivityPlan, ASaveReplacesTheWholePlanAndNothingElse) {
  builder_.plan(kMonday, u"001"_qs, u"读书"_qs, u"旧"_qs)
      .plan(kMonday, u"002"_qs, u"读书"_qs, u"不再有"_qs)
      .plan(kMonday, u"001"_qs, u"读书"_qs)
      .plan(kMonday.addDays(1), u"001"_qs, u"读书 "_qs, u"别人"_qs);
  const QStringList rows{u"2007-03-05|001|读书|先|1"_qs,
                         u"2007-3-5|001|读书|后|3x"_qs,
                         u"2007-03-05||读书"_qs,
                         u"2007-03-05|001|读书 "_qs,
                         u"|001|读书"_qs,
                         u"不是日期|001|跑步"_qs,
                         u"2007年12月15日|001|读书|行距|x"_qs};
  for (int i = 0; i < rows.size(); ++i) fillPlanRow(i, rows[i]);
  const auto outcome = save();
  EXPECT_EQ(outcome.failure, QString());
  EXPECT_TRUE(outcome.taken.isEmpty());
  EXPECT_EQ(saved(), (QStringList{u"2007-03-05|001|读书|后|3"_qs, u"2007-03-06|001|读书 |别人|1"_qs,
                                  u"2007-12-15|001|读书|行距|0"_qs}));
}

TEST_F(ActivityPlan, ASaveLeavesOutEveryRowWhoseBlockIsTakenAndSaysByWhom) {
  builder_.plan(kMonday, u"001"_qs, u"跑步"_qs)
      .plan(kMonday, u"002"_qs, u"读书"_qs, u"旧"_qs)
      .plan(kMonday, u"002"_qs, u"O'Neil"_qs);
  fillPlanRow(0, u"2007-03-05|001|读书"_qs);
  fillPlanRow(1, u"2007-03-05|002|读书"_qs);
  fillPlanRow(2, u"2007-03-06|001|读书"_qs);
  const auto outcome = save();
  ASSERT_EQ(outcome.taken.size(), 2);
  EXPECT_EQ(outcome.taken[0].date + outcome.taken[0].holder, u"2007-03-05跑步"_qs);
  EXPECT_EQ(outcome.taken[1].holder, u"O'Neil"_qs);
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-05|001|跑步|要求|1"_qs, u"2007-03-05|002|O'Neil|要求|1"_qs,
                         u"2007-03-06|001|读书||0"_qs}));
}

TEST_F(ActivityPlan, ABadRowKeepsTheRowsBeforeItAndEveryOldEntryBehindIt) {
  const std::tuple<PlanColumn, QString, QString> cases[]{
      {kPlanDate, u"2007-02-30"_qs, u"2007-02-30"_qs},
      {kPlanDate, u"明天"_qs, u"明天"_qs},
      {kPlanLevel, u"99999999999"_qs, u"“等级”"_qs},
      {kPlanRequirement, QString(256, u'长'), u"“要求”"_qs}};
  for (const auto& [col, text, complaint] : cases) {
    store_.execute(statements::deletePlans());
    changeAListedPlan();
    sheet_.SetCellText(col, 1, text);
    const QString failure = save().failure;
    EXPECT_TRUE(failure.startsWith(u"第 2 行：")) << failure.toStdString();
    EXPECT_TRUE(failure.contains(complaint)) << failure.toStdString();
    EXPECT_EQ(saved(),
              (QStringList{u"2007-03-05|002|读书|改|1"_qs, u"2007-03-06|002|读书|要求|1"_qs,
                           u"2007-03-07|002|读书|要求|1"_qs}));
  }
  store_.execute(statements::deletePlans());
  changeAListedPlan();
  const QStringList before = saved();
  EXPECT_THROW(save([](const WorkStep& step) { return step.done < 2; }), WorkCancelled);
  EXPECT_EQ(saved(), before) << "given up";
}

TEST_F(ActivityPlan, ChangesAreWhatASaveWouldAddAlterOrDelete) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第一章"_qs, 3)
      .plan(kMonday.addDays(1), u"002"_qs, u"读书"_qs)
      .plan(kMonday.addDays(2), u"002"_qs, u"读书"_qs);
  list();
  EXPECT_FALSE(changes().any());
  fillPlanRow(0, u" 2007-3-5 |002|读书|第一章|3级"_qs);
  EXPECT_FALSE(changes().any()) << "stored alike";
  sheet_.SetCellText(kPlanLevel, 0, u"4"_qs);
  typeRow(1, u"||||"_qs);
  sheet_.SetCellTag(kPlanTime, 1, {});
  fillPlanRow(5, u"2007-03-05|001|读书"_qs);
  EXPECT_EQ(changes().text(),
            u"左边有橙色标记的 2 行还没有保存；有 1 行已从表中去掉，保存后删除"_qs);
  sheet_.SetCellText(kPlanActivity, 2, u"跑步"_qs);
  EXPECT_EQ(changes().missing, 2) << "typed over";
}

TEST_F(ActivityPlan, ChangesSayWhyARowIsNotStored) {
  list();
  const QStringList rows{u"|002|读书"_qs, u"2007-02-30|002|读书"_qs, u"2007-03-05||读书"_qs,
                         u"2007-03-05|002|"_qs, u"2007-03-05|002|跑步"_qs};
  for (int i = 0; i < rows.size(); ++i) fillPlanRow(i, rows[i]);
  QStringList reasons;
  for (const auto& row : changes().rows) reasons << row.why;
  EXPECT_EQ(reasons, (QStringList{u"没有日期"_qs, u"的日期读不出来"_qs, u"没有时间块"_qs,
                                  u"没有内容"_qs, u"的内容是“跑步”"_qs}));
  EXPECT_TRUE(changes().text().endsWith(u"第 1 行没有日期，第 2 行的日期读不出来等 5 行，不会保存"))
      << changes().text().toStdString();
  sheet_.SetCellTag(kPlanActivity, 4, u"跑步"_qs);
  EXPECT_FALSE(changes().rows[4].isTyped) << "only shows who holds the block";
}

TEST_F(ActivityPlan, EntriesThatCannotBeReadAreNamedAndKept) {
  builder_.sql(
      u"INSERT INTO JH (RQ, SJKH, HDMC) VALUES ('garbage', '002', '读书'),"
      u"(NULL, '002', '读书'), (39000, '002', '读书'), ('2007-03-05', NULL, '读书')"_qs);
  list();
  EXPECT_EQ(filledRows(), QStringList());
  EXPECT_EQ(changes().note, u"有 4 条计划的日期或时间块读不出来，没有列出，保存时保持原样"_qs);
  EXPECT_EQ(writePlan(store_, sheet_, u"读书"_qs, &asRead_).failure, QString());
  EXPECT_EQ(saved().size(), 4);
}

TEST_F(ActivityPlan, CopiesFollowInOrderAndPushTheOtherRowsDown) {
  const std::tuple<QString, Repetition, QString> cases[]{
      {u"2007-03-05"_qs, {3, 1}, u"2007-03-06 2007-03-07 2007-03-08"_qs},
      {u"2007-03-05"_qs, {2, 7}, u"2007-03-12 2007-03-19"_qs},
      {u"2007-03-05"_qs, {2, 14}, u"2007-03-19 2007-04-02"_qs},
      {u"2008-2-28"_qs, {2, 1}, u"2008-02-29 2008-03-01"_qs},
      {u"9999-12-20"_qs, {9, 7}, u"9999-12-27"_qs},
      {u"2007-03-05"_qs, {0, 1}, QString()}};
  for (const auto& [source, repetition, copies] : cases) {
    setUpPlanRows(sheet_);
    fillPlanRow(2, source + u"|002|读书|第一章|3");
    fillPlanRow(3, u"下面|001|读书"_qs);
    const int count = copies.isEmpty() ? 0 : static_cast<int>(copies.count(u' ')) + 1;
    EXPECT_EQ(repeatPlanRow(store_, sheet_, 2, repetition), 3 + count);
    EXPECT_EQ(dates(3, count), copies);
    EXPECT_EQ(dates(3 + count, 1), u"下面"_qs);
  }
  sheet_ = Sheet();
  setUpPlanRows(sheet_);
  fillPlanRow(0, u"2007-03-05|002|"_qs);
  fillPlanRow(1, u"2007-02-30|002|读书"_qs);
  for (const int source : {-1, 0, 1, 5, 500}) {
    EXPECT_EQ(repeatPlanRow(store_, sheet_, source, {3, 1}), std::nullopt);
  }
  EXPECT_EQ(sheet_.Rows(), kSparePlanRows);
}

TEST(RepetitionCount, IsTheNumericValueWithAHalfRoundedToEven) {
  const std::pair<const char16_t*, int> cases[]{{u"60", 60},
                                                {u"2.5", 2},
                                                {u"3.5", 4},
                                                {u"7天", 7},
                                                {u"-3", 0},
                                                {u"", 0},
                                                {u"99999999999", 2147483647}};
  for (const auto& [text, count] : cases) {
    EXPECT_EQ(repetitionCount(QString::fromUtf16(text)), count);
  }
  const std::tuple<const char16_t*, int, const char16_t*> weeks[]{
      {u"8", 1, u"9"}, {u"8", -1, u"7"},  {u"60", 1, u"60"},   {u"1", -1, u"1"}, {u"", 0, u"1"},
      {u"x", 1, u"1"}, {u"61", 0, u"60"}, {u"5周", 0, u"5周"}, {u"5周", 1, u"6"}};
  for (const auto& [text, change, result] : weeks) {
    EXPECT_EQ(boundedWeeks(QString::fromUtf16(text), change), QString::fromUtf16(result));
  }
}

}  // namespace vellora
