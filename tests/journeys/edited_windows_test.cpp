#include "editors/activity_item_editor.h"
#include "editors/memo_window.h"
#include "editors/time_block_editor.h"
#include "editors/week_name_editor.h"
#include "grid/surface/grid_surface.h"
#include "planning/activity_plan_window.h"
#include "planning/daily_plan_window.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
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

void typeInCell(PlannerWindow& window, int col, const QString& text = u"x"_qs) {
  auto& grid = *window.findChild<GridSurface*>(u"Cell1"_qs);
  grid.SetCurrentCell(col, 0);
  grid.Focus();
  QTest::keyClicks(&grid, text);
}

template <typename Field>
void typeInField(PlannerWindow& window, const QString& name) {
  auto* field = window.findChild<Field*>(name);
  field->setFocus();
  QTest::keyClicks(field, u"x"_qs);
}

// A window over one row of its table, and hands that change the row and leave the field open.
struct Edited {
  const char* name;
  Window (*make)(ApplicationState& state);
  void (*type)(PlannerWindow& window);
  const char16_t* save;   // button
  const char* otherSave;  // what another copy does to the row meanwhile
};

const Edited kWindows[]{
    {"time blocks", make<TimeBlockEditor>, [](PlannerWindow& window) { typeInCell(window, 3); },
     u"cmdSV", "UPDATE SJ SET sjkm = '另一个'"},
    {"week names", make<WeekNameEditor>, [](PlannerWindow& window) { typeInCell(window, 2); },
     u"cmdSV", "UPDATE MM SET MM = '另一个'"},
    {"daily plan",
     [](ApplicationState& state) -> Window {
       return std::make_unique<DailyPlanWindow>(state, kMonday);
     },
     [](PlannerWindow& window) { typeInCell(window, 2); }, u"cmdSV",
     "UPDATE JH SET HDYQ = '另一个'"},
    {"activity plan", make<ActivityPlanWindow>,
     [](PlannerWindow& window) { typeInCell(window, 3, u"y"_qs); }, u"cmdSV",
     "UPDATE JH SET HDYQ = '另一个'"},
    {"memo", make<MemoWindow>,
     [](PlannerWindow& window) { typeInField<QPlainTextEdit>(window, u"Text1"_qs); }, u"CmdSV",
     "UPDATE BW SET Memo = '另一个'"},
    {"items", make<ActivityItemEditor>,
     [](PlannerWindow& window) { typeInField<QLineEdit>(window, u"txtHDMC"_qs); }, u"cmdOK",
     "UPDATE HD SET HDMC = '另一个'"},
};

// What holds for every window in which something is typed and saved.
class EditedWindows : public test::PlannerTest {
 protected:
  EditedWindows() {
    schedule_.block(u"001"_qs, u"08:00:00"_qs, u"09:00:00"_qs)
        .weekName(kMonday, kMonday.addDays(6), u"第一周"_qs)
        .item(u"001"_qs, u"读书"_qs)
        .plan(kMonday, u"001"_qs, u"读书"_qs)
        .memo(kMonday, u"备忘"_qs);
  }

  void open(const Edited& edited) {
    window_ = edited.make(state_);
    window_->Load();
    window_->Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  QPushButton& button(const QString& name) { return *window_->findChild<QPushButton*>(name); }
  QString status() { return window_->findChild<QLabel*>(u"EditStatus"_qs)->text(); }
  QStringList stored() { return test::dumpOf(store_); }

  Window window_;
};

}  // namespace

TEST_F(EditedWindows, AskBeforeTheyCloseOverWhatIsNotSaved) {
  enum Answer { Save, Discard, Cancel };
  for (const Edited& edited : kWindows) {
    SCOPED_TRACE(edited.name);
    const QStringList before = stored();
    for (const Answer answer : {Cancel, Discard, Save}) {
      open(edited);
      edited.type(*window_);
      prompts_.choices = {answer};
      window_->close();
      EXPECT_EQ(prompts_.questions.size(), 1) << "what is still being typed counts";
      EXPECT_EQ(window_->isVisible(), answer == Cancel);
      EXPECT_EQ(stored() == before, answer != Save);
      prompts_.questions.clear();
      window_.reset();
    }
    open(edited);
    window_->close();
    EXPECT_TRUE(prompts_.questions.isEmpty());
  }
}

TEST_F(EditedWindows, TakeNothingWhileTheyCouldNotRead) {
  SQLite::Database other(schedule_.path().toStdString(), SQLite::OPEN_READWRITE);
  const QStringList before = stored();
  for (const Edited& edited : kWindows) {
    SCOPED_TRACE(edited.name);
    other.exec("BEGIN EXCLUSIVE");
    open(edited);
    edited.type(*window_);
    EXPECT_TRUE(status().startsWith(u"没有读出来：")) << status().toStdString();
    EXPECT_FALSE(button(QString::fromUtf16(edited.save)).isEnabled());
    other.exec("ROLLBACK");
    button(u"CmdRefresh"_qs).click();
    EXPECT_EQ(status(), QString());
    EXPECT_EQ(stored(), before);
    edited.type(*window_);
    button(QString::fromUtf16(edited.save)).click();
    EXPECT_NE(stored(), before) << "the hindrance is gone";
    schedule_.sql(u"UPDATE SJ SET sjkm = '时段'"_qs).sql(u"UPDATE HD SET HDMC = '读书'"_qs);
    schedule_.sql(u"UPDATE JH SET HDYQ = '要求', HDMC = '读书'"_qs)
        .sql(u"UPDATE BW SET Memo = '备忘'"_qs);
    schedule_.sql(u"UPDATE MM SET MM = '第一周'"_qs);
    ASSERT_EQ(stored(), before);
  }
}

TEST_F(EditedWindows, AskBeforeTheyOverwriteWhatAnotherCopySaved) {
  enum Answer { Overwrite, ReadAgain, Cancel };
  for (const Edited& edited : kWindows) {
    for (const Answer answer : {Cancel, ReadAgain, Overwrite}) {
      SCOPED_TRACE(edited.name);
      open(edited);
      edited.type(*window_);
      schedule_.sql(QString::fromUtf8(edited.otherSave) + u" || '%1'"_qs.arg(answer));
      const QStringList before = stored();
      prompts_.questions.clear();
      prompts_.choices = {answer};
      button(QString::fromUtf16(edited.save)).click();
      EXPECT_EQ(prompts_.questions.size(), 1);
      EXPECT_EQ(stored() == before, answer != Overwrite);
      EXPECT_EQ(status().isEmpty(), answer != Cancel) << status().toStdString();
      window_.reset();
    }
  }
}

}  // namespace vellora
