#include "app/start_up.h"
#include "board/command_bar.h"
#include "faults/child_process.h"
#include "faults/damage.h"
#include "faults/failing_calls.h"
#include "faults/read_everything.h"
#include "faults/saving_jobs.h"
#include "faults/schedule_folder.h"
#include "faults/told.h"
#include "store/store_error.h"
#include "support/fixed_clock.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>
#include <stdexcept>

namespace vellora {
namespace {

using test::ChildEnd;
using test::Told;

const QDate kMonday(2007, 3, 5);

constexpr BoardCommand kWindows[]{BoardCommand::DailyPlan,  BoardCommand::ActivityPlan,
                                  BoardCommand::Statistics, BoardCommand::ActivityItems,
                                  BoardCommand::TimeBlocks, BoardCommand::Memo,
                                  BoardCommand::WeekNames,  BoardCommand::Backup};

// Opens each window over the board and closes it again. Nothing that a window meets may leave it
// as an exception, which would end the program.
void openEveryWindow(WeekBoard& board) {
  QTimer closing;
  QObject::connect(&closing, &QTimer::timeout, &board, [&] {
    for (auto* window : board.findChildren<PlannerWindow*>()) {
      if (window->isVisible()) window->close();
    }
  });
  closing.start(1);
  const auto* commands = board.findChild<CommandBar*>();
  for (const BoardCommand command : kWindows) commands->button(command).click();
}

// The whole program on the schedule in a folder, from start-up to the board, and all that the
// windows read.
Told toldByProgram(const QString& folder) {
  test::ScriptedPrompts prompts;
  const test::FixedClock clock(kMonday);
  const Told told = test::toldBy([&] {
    StartUp startUp(folder, prompts, clock);
    startUp.showBoard();
    startUp.finishLook();
    QCoreApplication::processEvents();
    try {
      openEveryWindow(startUp.board());
    } catch (const StoreError& error) {
      throw std::logic_error(error.what());
    }
    test::readEverything(startUp.state().Db);
  });
  for (const QString& warning : prompts.warnings) {
    if (!test::isChinese(warning)) return test::kRefusedWithoutAReason;
  }
  return told == test::kDone && !prompts.warnings.isEmpty() ? test::kRefused : told;
}

class DamagedSchedule : public testing::Test {
 protected:
  DamagedSchedule() {
    test::fillSchedule(original_);
    // Free pages in the middle, and an index for each look-up.
    original_.fullPlan(kMonday.addDays(60), 20, 20, 3)
        .sql(u"DELETE FROM JH WHERE RQ>'2007-05-10'"_qs);
    { const ScheduleStore complete = original_.store(); }
    whole_ = test::bytesOf(original_.path());
  }

  void write(const QByteArray& bytes) { test::writeBytes(path_, bytes); }
  ChildEnd endOfProgram() const {
    return test::endOf([&] { return int{toldByProgram(folder_.path({}))}; });
  }
  ChildEnd endOfSave(const test::SavingJob& job) const {
    return test::endOf([&] { return int{test::toldBy([&] { job.run(folder_.path({})); })}; });
  }
  static bool isDoneOrRefused(const ChildEnd& end) {
    return end == ChildEnd{.code = test::kDone} || end == ChildEnd{.code = test::kRefused};
  }

  test::ScheduleBuilder original_;
  test::TemporaryFolder folder_;
  const QString path_ = folder_.path(u"SY.mdb"_qs);
  QByteArray whole_;
};

}  // namespace

TEST_F(DamagedSchedule, IsReadOrRefusedInChineseAndNeverChangedByReading) {
  int refused = 0;
  for (unsigned seed = 0; seed < DAMAGES; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    const QByteArray bytes = test::damaged(whole_, random);
    write(bytes);
    const ChildEnd end = endOfProgram();
    EXPECT_TRUE(isDoneOrRefused(end)) << end;
    EXPECT_TRUE(test::bytesOf(path_) == bytes);
    EXPECT_EQ(folder_.names().size(), 1);
    if (end.code == test::kRefused) ++refused;
  }
  EXPECT_GT(refused, DAMAGES / 4);
}

TEST_F(DamagedSchedule, IsSavedToOrRefusedInChinese) {
  test::copyFolder(original_.folder(), folder_.path({}));
  for (unsigned seed = 0; seed < DAMAGES; ++seed) {
    const auto jobs = test::savingJobs();
    const test::SavingJob& job = jobs[seed % jobs.size()];
    SCOPED_TRACE(testing::Message() << job.name << ", seed " << seed);
    std::mt19937 random(seed);
    write(test::damaged(whole_, random));
    const ChildEnd end = endOfSave(job);
    EXPECT_TRUE(isDoneOrRefused(end)) << end;
  }
}

TEST_F(DamagedSchedule, IsOpenedOrRefusedBesideADamagedJournal) {
  const QString journal = path_ + u"-journal";
  for (unsigned seed = 0; seed < DAMAGES / 4; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    test::copyFolder(original_.folder(), folder_.path({}));
    test::endOf([&]() -> int {
      constexpr int kIntoTheSchedule = 18;
      test::breakCalls({.kind = test::CallFault::Kind::Kills, .at = kIntoTheSchedule});
      test::savingJobs().front().run(folder_.path({}));
      return 0;
    });
    const QByteArray unfinished = test::bytesOf(journal);
    ASSERT_GT(unfinished.size(), 8'192);
    test::writeBytes(journal, test::damaged(unfinished, random));
    const ChildEnd end = endOfProgram();
    EXPECT_TRUE(isDoneOrRefused(end)) << end;
  }
}

}  // namespace vellora
