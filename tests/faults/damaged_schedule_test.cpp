#include "app/start_up.h"
#include "board/command_bar.h"
#include "faults/child.h"
#include "faults/failing_calls.h"
#include "faults/saving_jobs.h"
#include "faults/schedule_folder.h"
#include "schedule/backup.h"
#include "schedule/plan_rows.h"
#include "schedule/time_use.h"
#include "support/fixed_clock.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QTimer>

#include <random>

namespace vellora {
namespace {

using namespace test;
using Random = std::mt19937;

constexpr qsizetype kPage = 4'096;
constexpr qsizetype kHeader = 100;
constexpr qsizetype kPageHead = 40;  // kind, counts, and the first places of cells

// A schedule's file as a failing disk or a careless copy may leave it; each time another damage,
// decided by `random` alone.
QByteArray damaged(QByteArray bytes, Random& random) {
  const auto below = [&](qsizetype limit) {
    return std::uniform_int_distribution<qsizetype>(0, limit - 1)(random);
  };
  const auto anyPage = [&] { return below(bytes.size() / kPage) * kPage; };
  const auto flipIn = [&](qsizetype begin, qsizetype size) {
    for (qsizetype flips = 1 + below(6); flips > 0; --flips) {
      char& byte = bytes[begin + below(size)];
      byte = static_cast<char>(byte ^ (1 << below(8)));
    }
  };
  const std::function<void()> damages[]{
      [&] { flipIn(0, bytes.size()); },
      [&] { flipIn(0, kHeader); },
      [&] { flipIn(kHeader, kPage - kHeader); },  // the table of contents
      [&] { flipIn(anyPage(), kPageHead); },
      [&] { bytes.replace(anyPage(), kPage, QByteArray(kPage, below(2) == 0 ? '\0' : '\xFF')); },
      [&] { bytes.replace(anyPage(), kPage, bytes.sliced(anyPage(), kPage)); },
      [&] { bytes.remove(anyPage(), kPage); },
      [&] { bytes.truncate(below(bytes.size())); }};
  damages[below(std::size(damages))]();
  return bytes;
}

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
  for (const auto command :
       {BoardCommand::DailyPlan, BoardCommand::ActivityPlan, BoardCommand::Statistics,
        BoardCommand::ActivityItems, BoardCommand::TimeBlocks, BoardCommand::Memo,
        BoardCommand::WeekNames, BoardCommand::Backup}) {
    board.findChild<CommandBar*>()->button(command).click();
  }
}

// What windows read at a later command.
void readTheRest(ScheduleStore& store) {
  const QDate monday(2007, 3, 5);
  Sheet plan;
  setUpPlanRows(plan);
  listEntries(store, plan, TimeBlockList(store), u"活动001"_qs);
  totalMinutes(useByCategory(store, monday, monday.addDays(6)));
  for (const QString& table : backedUpTables()) {
    auto rows = store.readOnce(table);
    while (rows.next()) {
      for (int col = 0; col < rows.columnCount(); ++col) rows.value(col);
    }
  }
}

// The whole program on the schedule in a folder, from start-up to the board, and all that the
// windows read.
Told toldByProgram(const QString& folder) {
  ScriptedPrompts prompts;
  const FixedClock clock(QDate(2007, 3, 5));
  Told told = toldBy([&] {
    StartUp startUp(folder, prompts, clock);
    startUp.showBoard();
    startUp.finishDamageCheck();
    QCoreApplication::processEvents();
    try {
      openEveryWindow(startUp.board());
    } catch (const std::exception& error) {
      throw std::logic_error(error.what());
    }
    readTheRest(startUp.state().Db);
  });
  for (const QString& warning : prompts.warnings) {
    if (!isChinese(warning)) return kRefusedWithoutAReason;
    if (told == kDone) told = kRefused;
  }
  return told;
}

class DamagedSchedule : public testing::Test {
 protected:
  DamagedSchedule() {
    fillSchedule(original_);
    // Free pages in the middle, and an index for each look-up.
    original_.fullPlan(QDate(2007, 5, 4), 20, 20, 3)
        .sql(u"DELETE FROM JH WHERE RQ>'2007-05-10'"_qs);
    { const ScheduleStore complete = original_.store(); }
    whole_ = bytesOf(original_.path());
  }

  static void expectDoneOrRefused(int end) { EXPECT_TRUE(end == kDone || end == kRefused) << end; }
  int endOfProgram() const {
    return endOf(startChild([&] { return int{toldByProgram(folder_.path({}))}; }));
  }

  const unsigned times_ = isThorough() ? 8'000 : 80;
  ScheduleBuilder original_;
  TemporaryFolder folder_;
  const QString path_ = folder_.path(u"SY.mdb"_qs);
  QByteArray whole_;
};

}  // namespace

TEST_F(DamagedSchedule, IsReadOrRefusedInChineseAndNeverChangedByReading) {
  unsigned refused = 0;
  for (unsigned seed = 0; seed < times_; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const QByteArray bytes = damaged(whole_, random);
    writeBytes(path_, bytes);
    const int end = endOfProgram();
    expectDoneOrRefused(end);
    EXPECT_TRUE(bytesOf(path_) == bytes);
    EXPECT_EQ(folder_.names().size(), 1);
    if (end == kRefused) ++refused;
  }
  EXPECT_GT(refused, times_ / 4);
}

TEST_F(DamagedSchedule, IsSavedToOrRefusedInChinese) {
  copyFolder(original_.folder(), folder_.path({}));
  for (unsigned seed = 0; seed < times_; ++seed) {
    const SavingJob& job = savingJobs()[seed % savingJobs().size()];
    SCOPED_TRACE(testing::Message() << job.name << ", seed " << seed);
    Random random(seed);
    writeBytes(path_, damaged(whole_, random));
    const auto save = [&] { job.run(folder_.path({})); };
    expectDoneOrRefused(endOf(startChild([&] { return int{toldBy(save)}; })));
  }
}

TEST_F(DamagedSchedule, IsOpenedOrRefusedBesideADamagedJournal) {
  constexpr int kIntoTheSchedule = 18;  // calls
  const QString journal = path_ + u"-journal";
  for (unsigned seed = 0; seed < times_ / 4; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    copyFolder(original_.folder(), folder_.path({}));
    endOf(startChild([&]() -> int {
      breakCalls({.kind = CallFault::Kind::Kills, .at = kIntoTheSchedule});
      savingJobs().front().run(folder_.path({}));
      return 0;
    }));
    const QByteArray unfinished = bytesOf(journal);
    ASSERT_GT(unfinished.size(), 8'192);
    writeBytes(journal, damaged(unfinished, random));
    expectDoneOrRefused(endOfProgram());
  }
}

}  // namespace vellora
