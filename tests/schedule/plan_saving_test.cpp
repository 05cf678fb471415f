#include "schedule/plan_saving.h"

#include "schedule/plan_rows.h"
#include "schedule_fixture.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace vellora {

using test::kMonday;

class PlanSaving : public test::ScheduleTest {
 protected:
  PlanSaveOutcome save(const WorkProgress& progress = {}) {
    return writePlan(*store_, sheet_, u"读书"_qs, nullptr, progress);
  }
  // Three entries of the activity, listed, then changed in the grid.
  void changeAListedPlan() {
    for (int day = 0; day < 3; ++day) builder_.plan(kMonday.addDays(day), u"002"_qs, u"读书"_qs);
    listEntries(*store_, sheet_, TimeBlockList(*store_), u"读书"_qs);
    for (int row = 0; row < 3; ++row) sheet_.SetCellText(kPlanRequirement, row, u"改"_qs);
  }
};

TEST_F(PlanSaving, ReplacesTheWholePlanAndNothingElse) {
  builder_.plan(kMonday, u"001"_qs, u"读书"_qs, u"旧"_qs)
      .plan(kMonday, u"002"_qs, u"读书"_qs, u"不再有"_qs)
      .plan(kMonday.addDays(1), u"001"_qs, u"读书 "_qs, u"别人"_qs);
  fillRow(0, planDateCell(kMonday), u"001"_qs, u"读书"_qs, u"新"_qs, u"3x"_qs);
  fillRow(7, u"2007年3月7日"_qs, u"001"_qs, u"读书"_qs, u"行距"_qs, u"x"_qs);
  const auto outcome = save();
  EXPECT_EQ(outcome.failure, QString());
  EXPECT_TRUE(outcome.taken.isEmpty());
  EXPECT_EQ(saved(), (QStringList{u"2007-03-05|001|读书|新|3"_qs, u"2007-03-06|001|读书 |别人|1"_qs,
                                  u"2007-03-07|001|读书|行距|0"_qs}));
}

TEST_F(PlanSaving, PassesOverRowsThatAreNotOfThisPlan) {
  fillRow(0, u"2007-03-05"_qs, u""_qs, u"读书"_qs);
  fillRow(1, u"2007-03-05"_qs, u"001"_qs, u"读书 "_qs);
  fillRow(2, u""_qs, u"001"_qs, u"读书"_qs);
  fillRow(3, u"不是日期"_qs, u"001"_qs, u"跑步"_qs);
  fillRow(4, u"2007-03-05"_qs, u"002"_qs, u"读书"_qs);
  EXPECT_EQ(save().failure, QString());
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|002|读书||0"_qs});
}

TEST_F(PlanSaving, TheLaterOfTwoRowsForOneBlockWins) {
  builder_.plan(kMonday, u"001"_qs, u"读书"_qs, u"旧"_qs).plan(kMonday, u"001"_qs, u"读书"_qs);
  for (const auto* code : {u"001", u"002"}) {
    fillRow(0, u"2007-03-05"_qs, QString::fromUtf16(code), u"读书"_qs, u"先"_qs, u"1"_qs);
    fillRow(1, u"2007-3-5"_qs, QString::fromUtf16(code), u"读书"_qs, u"后"_qs, u"2"_qs);
    EXPECT_EQ(save().failure, QString());
    EXPECT_EQ(saved(),
              QStringList{u"2007-03-05|"_qs + QString::fromUtf16(code) + u"|读书|后|2"_qs});
  }
}

TEST_F(PlanSaving, LeavesOutEveryRowWhoseBlockIsTakenAndSaysByWhom) {
  builder_.plan(kMonday, u"001"_qs, u"跑步"_qs)
      .plan(kMonday, u"002"_qs, u"读书"_qs, u"旧"_qs)
      .plan(kMonday, u"002"_qs, u"O'Neil"_qs);
  fillRow(0, planDateCell(kMonday), u"001"_qs, u"读书"_qs);
  fillRow(1, planDateCell(kMonday), u"002"_qs, u"读书"_qs);
  fillRow(2, u"2007-03-06"_qs, u"001"_qs, u"读书"_qs);
  const auto outcome = save();
  ASSERT_EQ(outcome.taken.size(), 2);
  EXPECT_EQ(outcome.taken[0].date, u"2007-03-05"_qs);
  EXPECT_EQ(outcome.taken[0].holder, u"跑步"_qs);
  EXPECT_EQ(outcome.taken[1].holder, u"O'Neil"_qs);
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-05|001|跑步|要求|1"_qs, u"2007-03-05|002|O'Neil|要求|1"_qs,
                         u"2007-03-06|001|读书||0"_qs}));
}

TEST_F(PlanSaving, ABadRowKeepsTheRowsBeforeItAndEveryOldEntryBehindIt) {
  struct Case {
    PlanColumn col;
    QString text;
    QString complaint;  // part of what the user reads
  };
  for (const auto& [col, text, complaint] : std::initializer_list<Case>{
           {kPlanDate, u"2007-02-30"_qs, u"2007-02-30"_qs},
           {kPlanDate, u"明天"_qs, u"明天"_qs},
           {kPlanLevel, u"99999999999"_qs, u"“等级”"_qs},
           {kPlanRequirement, QString(256, u'长'), u"“要求”"_qs},
       }) {
    store_->execute(statements::deletePlans());
    changeAListedPlan();
    sheet_.SetCellText(col, 1, text);
    const QString failure = save().failure;
    EXPECT_TRUE(failure.startsWith(u"第 2 行：")) << failure.toStdString();
    EXPECT_TRUE(failure.contains(complaint)) << failure.toStdString();
    EXPECT_EQ(saved(),
              (QStringList{u"2007-03-05|002|读书|改|1"_qs, u"2007-03-06|002|读书|要求|1"_qs,
                           u"2007-03-07|002|读书|要求|1"_qs}));
  }
}

TEST_F(PlanSaving, ASaveThatIsGivenUpLeavesNoTrace) {
  changeAListedPlan();
  const QStringList before = saved();
  EXPECT_THROW(save([](const WorkStep& step) { return step.done < 2; }), WorkCancelled);
  EXPECT_EQ(saved(), before);
}

// The plan of 读书, listed.
class PlanChanges : public test::ScheduleTest {
 protected:
  void list() {
    listEntries(*store_, sheet_, TimeBlockList(*store_), u"读书"_qs);
    saved_ = SavedEntries(*store_, u"读书"_qs);
  }
  Changes changes() { return planChanges(sheet_, u"读书"_qs, saved_, {}); }

  SavedEntries saved_;
};

TEST_F(PlanChanges, CountWhatASaveWouldAddAlterOrDelete) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第一章"_qs, 3)
      .plan(kMonday.addDays(1), u"002"_qs, u"读书"_qs)
      .plan(kMonday.addDays(2), u"002"_qs, u"读书"_qs);
  list();
  EXPECT_FALSE(changes().any());
  fillRow(0, u" 2007-3-5 "_qs, u"002"_qs, u"读书"_qs, u"第一章"_qs, u"3级"_qs);
  EXPECT_FALSE(changes().any()) << "stored alike";
  sheet_.SetCellText(kPlanRequirement, 0, u"第二章"_qs);
  fillRow(1, {}, {}, {});
  sheet_.SetCellText(kPlanTime, 1, {});
  fillRow(5, u"2007-03-05"_qs, u"001"_qs, u"读书"_qs);
  EXPECT_EQ(changes().text(),
            u"左边有橙色标记的 2 行还没有保存；有 1 行已从表中去掉，保存后删除"_qs);
  sheet_.SetCellText(kPlanActivity, 2, u"跑步"_qs);
  EXPECT_EQ(changes().missing, 2) << "typed over";
}

TEST_F(PlanChanges, SayWhyARowIsNotStored) {
  list();
  const QStringList wanted{u"没有日期"_qs, u"的日期读不出来"_qs, u"没有时间块"_qs, u"没有内容"_qs,
                           u"的内容是“跑步”"_qs};
  fillRow(0, {}, u"002"_qs, u"读书"_qs);
  fillRow(1, u"2007-02-30"_qs, u"002"_qs, u"读书"_qs);
  fillRow(2, u"2007-03-05"_qs, {}, u"读书"_qs);
  fillRow(3, u"2007-03-05"_qs, u"002"_qs, {});
  fillRow(4, u"2007-03-05"_qs, u"002"_qs, u"跑步"_qs);
  QStringList told;
  for (const auto& row : changes().rows) told << row.why;
  EXPECT_EQ(told, wanted);
  EXPECT_TRUE(changes().text().endsWith(u"第 1 行没有日期，第 2 行的日期读不出来等 5 行，不会保存"))
      << changes().text().toStdString();
  sheet_.SetCellTag(kPlanActivity, 4, u"跑步"_qs);
  EXPECT_FALSE(changes().rows[4].isTyped) << "tells who holds the block";
}

TEST_F(PlanChanges, EntriesThatCannotBeReadAreToldAndKept) {
  builder_.sql(
      u"INSERT INTO JH (RQ, SJKH, HDMC) VALUES ('garbage', '002', '读书'),"
      u"(NULL, '002', '读书'), (39000, '002', '读书'), ('2007-03-05', NULL, '读书')"_qs);
  list();
  EXPECT_EQ(sheet_.GetCellText(kPlanActivity, 0), QString());
  EXPECT_EQ(changes().note, u"有 4 条计划的日期或时间块读不出来，没有列出，保存时保持原样"_qs);
  EXPECT_EQ(writePlan(*store_, sheet_, u"读书"_qs, &saved_).failure, QString());
  EXPECT_EQ(saved().size(), 4);
}

}  // namespace vellora
