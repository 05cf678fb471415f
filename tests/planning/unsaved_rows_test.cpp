#include "planning/unsaved_rows.h"

#include "planning/day_plan.h"
#include "planning_fixture.h"

namespace vellora {

using test::kMonday;

class UnsavedRows : public test::PlanningTest {
 protected:
  std::vector<int> unsaved() {
    const SavedEntries saved(*store_, u"读书"_qs);
    return unsavedRows(sheet_,
                       [&](int row) { return isUnsavedPlanRow(sheet_, row, u"读书"_qs, saved); });
  }
};

TEST_F(UnsavedRows, AreThoseThatTheScheduleDoesNotHold) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第一章"_qs, 3);
  fillRow(0, u"2007-3-5"_qs, u"002"_qs, u"读书"_qs, u"第一章"_qs, u"3级"_qs);
  fillRow(1, u"2007-03-05"_qs, u"002"_qs, u"读书"_qs, u"第二章"_qs, u"3"_qs);
  fillRow(2, u"2007-03-05"_qs, u"001"_qs, u"读书"_qs, u"第一章"_qs, u"3"_qs);
  fillRow(3, u"2007-03-06"_qs, u"002"_qs, u"跑步"_qs);
  fillRow(9, u""_qs, u""_qs, u""_qs, u"只有要求"_qs);
  EXPECT_EQ(unsaved(), (std::vector<int>{1, 2, 9}));
}

TEST_F(UnsavedRows, OfADayAreThoseThatDifferFromTheirBlocksEntry) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第一章"_qs, 3);
  setUpDayRows(sheet_);
  layOutBlockRows(sheet_, TimeBlockList(*store_));
  loadDayPlan(*store_, sheet_, kMonday, {});
  const SavedEntries saved(*store_, kMonday);
  const auto isUnsaved = [&](int row) { return isUnsavedDayRow(sheet_, row, kMonday, saved); };
  EXPECT_FALSE(isUnsaved(0));
  EXPECT_FALSE(isUnsaved(1));
  sheet_.SetCellText(kDayActivity, 0, QString());
  sheet_.SetCellText(kDayLevel, 1, u"0"_qs);
  EXPECT_TRUE(isUnsaved(0));
  EXPECT_TRUE(isUnsaved(1));
}

}  // namespace vellora
