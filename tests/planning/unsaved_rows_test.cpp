#include "planning/unsaved_rows.h"

#include "planning/day_plan.h"
#include "planning_fixture.h"

#include <set>

namespace vellora {

using test::kMonday;

class UnsavedRowsTest : public test::PlanningTest {
 protected:
  std::vector<int> unsaved() {
    const SavedEntries saved(*store_, u"读书"_qs);
    const auto isUnsaved = [&](int row) {
      asked_.insert(row);
      return isUnsavedPlanRow(sheet_, row, u"读书"_qs, saved);
    };
    asked_.clear();
    findUnsavedRows(sheet_, isUnsaved, found_);
    return found_.rows;
  }

  UnsavedRows found_;
  std::set<int> asked_;
};

TEST_F(UnsavedRowsTest, AreThoseThatTheScheduleDoesNotHold) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第一章"_qs, 3);
  fillRow(0, u"2007-3-5"_qs, u"002"_qs, u"读书"_qs, u"第一章"_qs, u"3级"_qs);
  fillRow(1, u"2007-03-05"_qs, u"002"_qs, u"读书"_qs, u"第二章"_qs, u"3"_qs);
  fillRow(2, u"2007-03-05"_qs, u"001"_qs, u"读书"_qs, u"第一章"_qs, u"3"_qs);
  fillRow(3, u"2007-03-06"_qs, u"002"_qs, u"跑步"_qs);
  fillRow(9, u""_qs, u""_qs, u""_qs, u"只有要求"_qs);
  EXPECT_EQ(unsaved(), (std::vector<int>{1, 2, 9}));
}

TEST_F(UnsavedRowsTest, AreLookedForOnlyWhereSomethingChanged) {
  constexpr int kMany = 3'000;
  sheet_.SetRows(kMany);
  for (int row = 0; row < kMany; ++row) fillRow(row, {}, {}, {}, row % 2 ? u"要求"_qs : QString());
  const Sheet before = sheet_;
  std::vector<int> odd = unsaved();
  ASSERT_EQ(odd.size(), kMany / 2);
  EXPECT_EQ(unsaved(), odd);
  EXPECT_TRUE(asked_.empty());
  sheet_.SetCellText(kPlanRequirement, 1'000, u"要求"_qs);
  sheet_.SetCellText(kPlanRequirement, 1'001, QString());
  odd[500] = 1'000;
  EXPECT_EQ(unsaved(), odd);
  EXPECT_LT(asked_.size(), 600U);
  sheet_.DeleteRows(0, 999);
  const auto afterDeleting = unsaved();
  ASSERT_EQ(afterDeleting.size(), odd.size() - 499);
  EXPECT_EQ(afterDeleting.front(), 0);
  sheet_ = before;
  EXPECT_EQ(unsaved()[500], 1'001);
  EXPECT_EQ(found_.rows.size(), odd.size());
}

TEST_F(UnsavedRowsTest, OfADayAreThoseThatDifferFromTheirBlocksEntry) {
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
