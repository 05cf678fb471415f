#include "planning_fixture.h"
#include "schedule/plan_rows.h"
#include "schedule/plan_saving.h"

namespace vellora {

using test::kMonday;

// The plan of 读书, listed.
class PlanChanges : public test::PlanningTest {
 protected:
  void list() {
    listPlan(*store_, sheet_, TimeBlockList(*store_), u"读书"_qs);
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
  EXPECT_EQ(savePlan(*store_, sheet_, u"读书"_qs, &saved_).failure, QString());
  EXPECT_EQ(saved().size(), 4);
}

}  // namespace vellora
