#include "schedule/plan_saving.h"

#include "planning_fixture.h"
#include "schedule/plan_rows.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace vellora {

using test::kMonday;

class PlanSaving : public test::PlanningTest {
 protected:
  PlanSaveOutcome save(const WorkProgress& progress = {}) {
    return savePlan(*store_, sheet_, u"读书"_qs, nullptr, progress);
  }
  // Three entries of the activity, listed, then changed in the grid.
  void changeAListedPlan() {
    for (int day = 0; day < 3; ++day) builder_.plan(kMonday.addDays(day), u"002"_qs, u"读书"_qs);
    listPlan(*store_, sheet_, TimeBlockList(*store_), u"读书"_qs);
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

TEST_F(PlanSaving, AnEmptyGridDeletesThePlan) {
  builder_.plan(kMonday, u"001"_qs, u"读书"_qs).plan(kMonday, u"001"_qs, u"读书"_qs);
  EXPECT_EQ(save().failure, QString());
  EXPECT_EQ(saved(), QStringList());
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

TEST_F(PlanSaving, ALockedScheduleIsLeftAsItWas) {
  changeAListedPlan();
  ScheduleStore other = builder_.store();
  const ScheduleStore::Transaction itsSave(other);
  EXPECT_EQ(save().failure, u"另一个程序正在使用日程文件，请稍后再试。"_qs);
  EXPECT_EQ(saved().first(), u"2007-03-05|002|读书|要求|1"_qs);
}

TEST_F(PlanSaving, ASaveThatIsGivenUpLeavesNoTrace) {
  changeAListedPlan();
  const QStringList before = saved();
  EXPECT_THROW(save([](const WorkStep& step) { return step.done < 2; }), WorkGivenUp);
  EXPECT_EQ(saved(), before);
}

TEST_F(PlanSaving, AKilledProcessLeavesEveryEntryAsItWas) {
  changeAListedPlan();
  const QStringList before = saved();
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    ScheduleStore own = builder_.store();
    savePlan(own, sheet_, u"读书"_qs, nullptr,
             [](const WorkStep& step) { return step.done < 2 || raise(SIGKILL) != 0; });
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status)) << "the save ended before it was killed";
  EXPECT_EQ(saved(), before);
}

}  // namespace vellora
