#include "editors/activity_item_editor.h"
#include "editors/memo_window.h"
#include "editors/time_block_editor.h"
#include "editors/week_name_editor.h"
#include "grid/surface/grid_surface.h"
#include "planning/activity_plan_window.h"
#include "planning/daily_plan_window.h"
#include "support/hands.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

#include <QPushButton>

namespace vellora {
namespace {

using namespace test;
using Window = std::unique_ptr<PlannerWindow>;

template <typename Kind>
Window make(ApplicationState& state) {
  return std::make_unique<Kind>(state);
}

template <>
Window make<DailyPlanWindow>(ApplicationState& state) {
  return std::make_unique<DailyPlanWindow>(state, kMonday);
}

// A window over one row of its table.
struct Edited {
  Window (*make)(ApplicationState& state);
  QString field;    // that is typed into
  int col;          // if that is a grid
  QString save;     // button
  QString saved;    // table and column
  void (*leave)();  // turns to other content without a question
};

void PrintTo(const Edited& edited, std::ostream* out) {
  PrintTo(edited.saved, out);
}

const Edited kWindows[]{
    {make<TimeBlockEditor>, u"Cell1"_qs, 3, u"cmdSV"_qs, u"SJ SET sjkm"_qs, [] { alt('O'); }},
    {make<WeekNameEditor>, u"Cell1"_qs, 2, u"cmdSV"_qs, u"MM SET MM"_qs, [] { alt('O'); }},
    {make<DailyPlanWindow>, u"Cell1"_qs, 2, u"cmdSV"_qs, u"JH SET HDYQ"_qs,
     [] { click(u"Command2"_qs); }},
    {make<ActivityPlanWindow>, u"Cell1"_qs, 3, u"cmdSV"_qs, u"JH SET HDYQ"_qs,
     [] { click(u"List1"_qs, 1); }},
    {make<MemoWindow>, u"Text1"_qs, 0, u"CmdSV"_qs, u"BW SET Memo"_qs, [] { click(u"Cm3"_qs); }},
    {make<ActivityItemEditor>, u"txtHDMC"_qs, 0, u"cmdOK"_qs, u"HD SET HDMC"_qs,
     [] { click(u"CmdSX"_qs); }},
};

// What holds for every window in which something is typed and saved.
class EditedWindows : public PlannerTest, public testing::WithParamInterface<Edited> {
 protected:
  EditedWindows() {
    schedule_.block(u"001"_qs, u"08:00:00"_qs, u"09:00:00"_qs)
        .weekName(kMonday, kMonday.addDays(6), u"第一周"_qs)
        .item(u"001"_qs, u"读书"_qs)
        .item(u"002"_qs, u"跑步"_qs)
        .plan(kMonday, u"001"_qs, u"读书"_qs)
        .memo(kMonday, u"备忘"_qs);
    // A plan would be asked about when its item gets another name.
    if (GetParam().saved.startsWith(u"HD")) schedule_.sql(u"DELETE FROM JH"_qs);
  }
  void openAndType() {
    window_ = GetParam().make(state_);
    open(*window_);
    type();
  }
  // Changes the row and leaves the field open.
  void type() {
    if (GetParam().col > 0) grid().SetCurrentCell(GetParam().col, 0);
    control(GetParam().field).setFocus();
    test::type(u"y"_qs);
  }
  // As its shortcut does: the focus stays in the field.
  void save() { control<QPushButton>(GetParam().save).click(); }

  Window window_;
};

}  // namespace

TEST_P(EditedWindows, AskBeforeTheyCloseOverWhatIsNotSaved) {
  enum Answer { Save, Discard, Cancel };
  const QStringList before = dumpOf(store_);
  for (const bool isLocked : {true, false}) {
    for (const Answer answer : {Cancel, Discard, Save}) {
      openAndType();
      prompts_.questions.clear();
      prompts_.choices = {answer};
      schedule_.sql(isLocked ? u"BEGIN IMMEDIATE"_qs : u"BEGIN"_qs);
      window_->close();
      schedule_.sql(u"ROLLBACK"_qs);
      EXPECT_EQ(prompts_.questions.size(), 1) << "what is still being typed counts";
      EXPECT_EQ(window_->isVisible(), answer == Cancel || (answer == Save && isLocked));
      EXPECT_EQ(dumpOf(store_) == before, answer != Save || isLocked);
    }
  }
  EXPECT_EQ(prompts_.warnings.size(), prompts_.warnings.filter(u"保存完毕"_qs).size() + 1);
  openAndType();
  save();
  window_->close();
  EXPECT_EQ(prompts_.questions.size(), 1) << "nothing is left to save";
}

TEST_P(EditedWindows, TakeAndLoseNothingWhileTheyCannotRead) {
  schedule_.sql(u"BEGIN EXCLUSIVE"_qs);
  openAndType();
  EXPECT_TRUE(text(u"EditStatus"_qs).startsWith(u"没有读出来："_qs));
  EXPECT_FALSE(control(GetParam().save).isEnabled());
  schedule_.sql(u"ROLLBACK"_qs);
  click(u"CmdRefresh"_qs);
  type();
  GetParam().leave();
  EXPECT_EQ(text(u"EditStatus"_qs), QString());
  prompts_.warnings.clear();
  schedule_.sql(u"BEGIN EXCLUSIVE"_qs);
  click(u"CmdFetch"_qs);
  EXPECT_EQ(control(GetParam().save).isEnabled(), prompts_.warnings.isEmpty());
  schedule_.sql(u"ROLLBACK"_qs);
  const bool isKept = control(u"CmdFetch"_qs).isVisible();
  EXPECT_EQ(isKept, !prompts_.warnings.isEmpty());
  if (isKept) click(u"CmdFetch"_qs);
  save();
  EXPECT_EQ(dumpOf(store_).filter(u"y"_qs).size(), 1) << "what was dropped is back";
}

TEST_P(EditedWindows, AskBeforeTheyOverwriteWhatAnotherCopySaved) {
  enum Answer { Overwrite, ReadAgain, Cancel };
  for (const Answer answer : {Cancel, ReadAgain, Overwrite}) {
    openAndType();
    schedule_.sql(u"UPDATE %1 = '另一个%2'"_qs.arg(GetParam().saved).arg(answer));
    const QStringList before = dumpOf(store_);
    prompts_.questions.clear();
    prompts_.choices = {answer};
    save();
    EXPECT_EQ(prompts_.questions.size(), 1);
    EXPECT_EQ(dumpOf(store_) == before, answer != Overwrite);
    EXPECT_EQ(text(u"EditStatus"_qs).isEmpty(), answer != Cancel);
  }
}

INSTANTIATE_TEST_SUITE_P(All, EditedWindows, testing::ValuesIn(kWindows));

}  // namespace vellora
