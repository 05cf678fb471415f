#include "app/start_up.h"

#include "app/platform.h"
#include "grid/surface/grid_surface.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QCoreApplication>

#include <SQLiteCpp/Database.h>
#include <atomic>
#include <thread>

namespace vellora {
namespace {

const QDate kToday(2007, 3, 5);
using std::chrono::milliseconds;

class StartUpTest : public testing::Test {
 protected:
  // The rows of the board of a schedule.
  int start(const QString& folder) {
    start_up_.emplace(folder, prompts_, clock_);
    start_up_->showBoard();
    return start_up_->board().findChild<GridSurface*>()->Rows();
  }
  // A schedule that is damaged where nobody looks yet.
  void damage() {
    schedule_.fullDay(20).fullPlan(kToday.addDays(400), 300, 20, 5);
    damaged_ = test::bytesOf(schedule_.path());
    damaged_.replace(damaged_.size() / 3, 4'096, QByteArray(4'096, '\0'));
    test::writeBytes(path_, damaged_);
  }

  test::ScheduleBuilder schedule_;
  test::TemporaryFolder folder_;
  QString path_ = folder_.path(u"SY.mdb"_qs);
  QByteArray damaged_;
  test::ScriptedPrompts prompts_;
  test::FixedClock clock_{kToday};
  std::optional<StartUp> start_up_;
};

}  // namespace

TEST_F(StartUpTest, PutsOnTheDefaultSkinOrTheFirstStoredOneWithoutAWordWhenItIsMissing) {
  schedule_.fullDay(3);
  EXPECT_EQ(start(schedule_.folder()), 4);
  EXPECT_EQ(start_up_->state().SkinPath, schedule_.folder() + u"/KTZ0.SKN"_qs);
  schedule_.skin(u"/皮肤/夜.skn"_qs).skin(u"/皮肤/日.skn"_qs);
  EXPECT_EQ(start(schedule_.folder()), 4);
  EXPECT_EQ(start_up_->state().SkinPath, u"/皮肤/夜.skn"_qs);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

TEST_F(StartUpTest, LaysAUsersFilesOnceAndNeverTouchesThem) {
  const test::TemporaryFolder shared;
  test::writeBytes(shared.path(u"SY.mdb"_qs), "starter");
  test::writeBytes(shared.path(u"KTZ0.SKN"_qs), "skin");
  const QByteArray before = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", folder_.path({}).toUtf8());
  const QString user = layUserFolder(shared.path({}));
  EXPECT_EQ(test::bytesOf(user + u"/SY.mdb"_qs), "starter");
  test::writeBytes(user + u"/SY.mdb"_qs, "twenty years");
  QFile::remove(user + u"/KTZ0.SKN"_qs);
  test::writeBytes(shared.path(u"SY.mdb"_qs), "newer starter");
  EXPECT_EQ(layUserFolder(shared.path({})), user);
  EXPECT_EQ(test::bytesOf(user + u"/SY.mdb"_qs), "twenty years");
  EXPECT_EQ(test::bytesOf(user + u"/KTZ0.SKN"_qs), "skin");
  qputenv("XDG_DATA_HOME", before);
}

TEST_F(StartUpTest, SaysThatTheScheduleIsDamagedAndShowsWhatCanBeRead) {
  damage();
  EXPECT_EQ(start(QFileInfo(path_).path()), 21);
  start_up_->finishDamageCheck();
  QCoreApplication::processEvents();
  ASSERT_EQ(prompts_.warnings.size(), 1);
  EXPECT_TRUE(prompts_.warnings[0].contains(u"已损坏"_qs));
  EXPECT_EQ(test::bytesOf(path_), damaged_);
}

TEST_F(StartUpTest, LooksForDamageAgainInAScheduleThatWasBusy) {
  damage();
  std::atomic<bool> isTold = false;
  DamageCheck look(
      path_, [&] { isTold = true; }, milliseconds(50));
  {
    SQLite::Database other(path_.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    look.begin();
    std::this_thread::sleep_for(milliseconds(20));
    EXPECT_FALSE(look.isOver());
  }
  look.finish();
  EXPECT_TRUE(isTold);
}

TEST_F(StartUpTest, LooksForDamageAfterASaveThatItHinders) {
  schedule_.fullDay(50).fullPlan(kToday, 600, 50, 1);
  for (bool hasMet = false; !hasMet;) {
    DamageCheck look(
        schedule_.path(), [] { ADD_FAILURE(); }, std::chrono::hours(1));
    ScheduleStore store(schedule_.path(), std::chrono::hours(1), [&] {
      hasMet = true;
      look.yieldToSave();
      return true;
    });
    look.begin();
    std::this_thread::sleep_for(milliseconds(2));
    store.execute(u"INSERT INTO JM (jm) VALUES ('x')"_qs);
    EXPECT_TRUE(!hasMet || !look.isOver()) << "the save waited for the look's end";
  }
}

}  // namespace vellora
