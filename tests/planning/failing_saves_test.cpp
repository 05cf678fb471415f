#include "planning/activity_plan_window.h"
#include "planning/daily_plan_window.h"
#include "schedule/day_plan.h"
#include "schedule/plan_rows.h"
#include "window_fixture.h"

#include <sqlite3.h>

namespace vellora {

using test::kToday;

// Two saved entries, both changed in the grid of a window, and a disk that refuses the save.
class FailingSaves : public test::WindowTest {
 protected:
  struct Planning {
    const char* name;
    int requirement;  // the column
    std::unique_ptr<PlannerWindow> (*make)(ApplicationState& state);
  };
  static constexpr Planning kPlannings[]{
      {"activity plan", kPlanRequirement,
       [](ApplicationState& state) -> std::unique_ptr<PlannerWindow> {
         return std::make_unique<ActivityPlanWindow>(state);
       }},
      {"daily plan", kDayRequirement,
       [](ApplicationState& state) -> std::unique_ptr<PlannerWindow> {
         return std::make_unique<DailyPlanWindow>(state, kToday);
       }},
  };

  void fill() {
    schedule_.sql(u"DELETE FROM JH"_qs);
    schedule_.plan(kToday, u"001"_qs, u"读书"_qs).plan(kToday, u"002"_qs, u"读书"_qs);
    before_ = saved();
  }
  void open(const Planning& planning, ScheduleStore& store) {
    column_ = planning.requirement;
    ownState_ = std::make_unique<ApplicationState>(ApplicationState{
        store, prompts_, clock_, state_.programDir, state_.SkinPath, state_.ExportDir});
    window_ = planning.make(*ownState_);
    window_->Load();
    WindowTest::open(*window_);
    for (const int row : {0, 1}) type(*window_, column_, row, u"新"_qs);
  }
  // Returns what the user is told.
  QString save() {
    prompts_.warnings.clear();
    click(*window_, u"cmdSV"_qs);
    return prompts_.warnings.join(u'\n');
  }
  void expectNothingLost() {
    disk_.repair();
    EXPECT_EQ(saved(), before_);
    for (const int row : {0, 1}) {
      EXPECT_EQ(grid(*window_).GetCellText(column_, row), u"新"_qs);
      EXPECT_TRUE(isMarked(*window_, row));
    }
  }
  void expectAllSaved() {
    EXPECT_EQ(saved(),
              (QStringList{u"2007-03-05|001|读书|新|1"_qs, u"2007-03-05|002|读书|新|1"_qs}));
    EXPECT_FALSE(isMarked(*window_, 0));
  }

  std::unique_ptr<ApplicationState> ownState_;
  std::unique_ptr<PlannerWindow> window_;
  QStringList before_;
  int column_ = 0;
};

TEST_F(FailingSaves, KeepEveryEntryWhereverTheDiskRunsFull) {
  for (const Planning& planning : kPlannings) {
    SCOPED_TRACE(planning.name);
    fill();
    ScheduleStore store(schedule_.path());
    open(planning, store);
    int writes = 0;
    for (QString told; told != u"保存完毕!"_qs && !HasFailure(); ++writes) {
      disk_.failWritesAfter(writes, SQLITE_FULL);
      told = save();
      if (told == u"保存完毕!"_qs) break;
      EXPECT_TRUE(told.contains(u"磁盘空间已满，不能保存。")) << told.toStdString();
      expectNothingLost();
    }
    EXPECT_GT(writes, 3) << "journal and pages";
    disk_.repair();
    expectAllSaved();
    window_.reset();
  }
}

TEST_F(FailingSaves, KeepEveryEntryWhereTheFileOrItsFolderCanOnlyBeRead) {
  const QString readOnly = u"日程文件或它所在的文件夹不允许写入，不能保存。"_qs;
  for (const Planning& planning : kPlannings) {
    for (const bool isFile : {true, false}) {
      SCOPED_TRACE(planning.name);
      fill();
      if (isFile) disk_.makeReadOnly();
      ScheduleStore store(schedule_.path());
      open(planning, store);
      if (!isFile) disk_.closeFolder();
      const QString told = save();
      EXPECT_TRUE(told.endsWith(readOnly)) << told.toStdString();
      expectNothingLost();
      if (!isFile) {
        EXPECT_EQ(save(), u"保存完毕!"_qs);
        expectAllSaved();
      }
      window_.reset();
    }
  }
}

}  // namespace vellora
