#include "editors/activity_item_editor.h"
#include "editors/memo_window.h"
#include "editors/time_block_editor.h"
#include "editors/week_name_editor.h"
#include "grid/surface/grid_surface.h"
#include "planning/activity_plan_window.h"
#include "planning/daily_plan_window.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <SQLiteCpp/Database.h>

namespace vellora {
namespace {

using test::kMonday;
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
  const char* field;  // that is typed into
  int col;            // if it is a grid
  const char* save;   // button
  const char* saved;  // table and column
};

void PrintTo(const Edited& edited, std::ostream* out) {
  *out << edited.saved;
}

const Edited kWindows[]{
    {make<TimeBlockEditor>, "Cell1", 3, "cmdSV", "SJ SET sjkm"},
    {make<WeekNameEditor>, "Cell1", 2, "cmdSV", "MM SET MM"},
    {make<DailyPlanWindow>, "Cell1", 2, "cmdSV", "JH SET HDYQ"},
    {make<ActivityPlanWindow>, "Cell1", 3, "cmdSV", "JH SET HDYQ"},
    {make<MemoWindow>, "Text1", 0, "CmdSV", "BW SET Memo"},
    {make<ActivityItemEditor>, "txtHDMC", 0, "cmdOK", "HD SET HDMC"},
};

// What holds for every window in which something is typed and saved.
class EditedWindows : public test::PlannerTest, public testing::WithParamInterface<Edited> {
 protected:
  EditedWindows() {
    schedule_.block(u"001"_qs, u"08:00:00"_qs, u"09:00:00"_qs)
        .weekName(kMonday, kMonday.addDays(6), u"第一周"_qs)
        .item(u"001"_qs, u"读书"_qs)
        .plan(kMonday, u"001"_qs, u"读书"_qs)
        .memo(kMonday, u"备忘"_qs);
  }
  void openAndType() {
    window_ = GetParam().make(state_);
    window_->Load();
    window_->Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    type();
  }
  // Changes the row and leaves the field open.
  void type() {
    auto* field = window_->findChild<QWidget*>(QString::fromUtf8(GetParam().field));
    if (auto* grid = qobject_cast<GridSurface*>(field)) grid->SetCurrentCell(GetParam().col, 0);
    field->setFocus();
    QTest::keyClicks(field, u"y"_qs);
  }
  QPushButton& button(const char* name) {
    return *window_->findChild<QPushButton*>(QString::fromUtf8(name));
  }
  QString status() { return window_->findChild<QLabel*>(u"EditStatus"_qs)->text(); }
  QStringList stored() { return test::dumpOf(store_); }

  Window window_;
};

}  // namespace

TEST_P(EditedWindows, AskBeforeTheyCloseOverWhatIsNotSaved) {
  enum Answer { Save, Discard, Cancel };
  const QStringList before = stored();
  for (const Answer answer : {Cancel, Discard, Save}) {
    openAndType();
    prompts_.questions.clear();
    prompts_.choices = {answer};
    window_->close();
    EXPECT_EQ(prompts_.questions.size(), 1) << "what is still being typed counts";
    EXPECT_EQ(window_->isVisible(), answer == Cancel);
    EXPECT_EQ(stored() == before, answer != Save);
    window_.reset();
  }
  openAndType();
  button(GetParam().save).click();
  window_->close();
  EXPECT_EQ(prompts_.questions.size(), 1) << "nothing is left to save";
}

TEST_P(EditedWindows, StayOpenWhenTheSaveBeforeClosingFails) {
  openAndType();
  const QStringList before = stored();
  SQLite::Database other(schedule_.path().toStdString(), SQLite::OPEN_READWRITE);
  other.exec("BEGIN IMMEDIATE");
  prompts_.choices = {0};
  window_->close();
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(stored(), before);
  EXPECT_NE(status(), QString());
}

TEST_P(EditedWindows, TakeNothingWhileTheyCouldNotRead) {
  SQLite::Database other(schedule_.path().toStdString(), SQLite::OPEN_READWRITE);
  const QStringList before = stored();
  other.exec("BEGIN EXCLUSIVE");
  openAndType();
  EXPECT_TRUE(status().startsWith(u"没有读出来：")) << status().toStdString();
  EXPECT_FALSE(button(GetParam().save).isEnabled());
  other.exec("ROLLBACK");
  button("CmdRefresh").click();
  EXPECT_EQ(status(), QString());
  EXPECT_EQ(stored(), before);
  type();
  button(GetParam().save).click();
  EXPECT_NE(stored(), before) << "the hindrance is gone";
}

TEST_P(EditedWindows, AskBeforeTheyOverwriteWhatAnotherCopySaved) {
  enum Answer { Overwrite, ReadAgain, Cancel };
  for (const Answer answer : {Cancel, ReadAgain, Overwrite}) {
    openAndType();
    schedule_.sql(
        u"UPDATE %1 = '另一个%2'"_qs.arg(QString::fromUtf8(GetParam().saved)).arg(answer));
    const QStringList before = stored();
    prompts_.questions.clear();
    prompts_.choices = {answer};
    button(GetParam().save).click();
    EXPECT_EQ(prompts_.questions.size(), 1);
    EXPECT_EQ(stored() == before, answer != Overwrite);
    EXPECT_EQ(status().isEmpty(), answer != Cancel) << status().toStdString();
    window_.reset();
  }
}

INSTANTIATE_TEST_SUITE_P(All, EditedWindows, testing::ValuesIn(kWindows));

}  // namespace vellora
