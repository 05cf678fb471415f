#include "planning/unsaved_rows.h"

#include "planning/day_plan.h"
#include "planning_fixture.h"

namespace vellora {

using test::kMonday;

class UnsavedRows : public test::PlanningTest {
 protected:
  int mark() {
    const SavedEntries saved(*store_, u"读书"_qs);
    return markUnsavedRows(
        sheet_, [&](int row) { return isUnsavedPlanRow(sheet_, row, u"读书"_qs, saved); });
  }
  bool isMarked(int row) const {
    return sheet_.StyleAt(0, row).hasColours && sheet_.StyleAt(0, row).backColour == kUnsavedPaper;
  }
};

TEST_F(UnsavedRows, AreThoseThatTheScheduleDoesNotHold) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第一章"_qs, 3);
  fillRow(0, u"2007-3-5"_qs, u"002"_qs, u"读书"_qs, u"第一章"_qs, u"3级"_qs);
  fillRow(1, u"2007-03-05"_qs, u"002"_qs, u"读书"_qs, u"第二章"_qs, u"3"_qs);
  fillRow(2, u"2007-03-05"_qs, u"001"_qs, u"读书"_qs, u"第一章"_qs, u"3"_qs);
  fillRow(3, u"2007-03-06"_qs, u"002"_qs, u"跑步"_qs);
  fillRow(4, u""_qs, u""_qs, u""_qs, u"只有要求"_qs);
  EXPECT_EQ(mark(), 3);
  const QList<bool> expected{false, true, true, false, true, false};
  for (int i = 0; i < expected.size(); ++i) EXPECT_EQ(isMarked(i), expected[i]) << i;
}

TEST_F(UnsavedRows, LoseTheirMarkWhenTheyAreSaved) {
  fillRow(0, u"2007-03-05"_qs, u"002"_qs, u"读书"_qs, u"第一章"_qs, u"3"_qs);
  EXPECT_EQ(mark(), 1);
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第一章"_qs, 3);
  EXPECT_EQ(mark(), 0);
  EXPECT_FALSE(sheet_.StyleAt(0, 0).hasColours);
  EXPECT_EQ(sheet_.StyleAt(0, 0).align, kAlignCentred);
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
