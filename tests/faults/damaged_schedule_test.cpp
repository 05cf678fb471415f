#include "app/start_up.h"
#include "board/command_bar.h"
#include "faults/child.h"
#include "faults/failing_calls.h"
#include "faults/saving_jobs.h"
#include "faults/schedule_folder.h"
#include "support/fixed_clock.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QTimer>

#include <cerrno>
#include <random>

namespace vellora {
namespace {

using namespace test;
using Random = std::mt19937;

constexpr qsizetype kPage = 4'096;
constexpr qsizetype kHeader = 100;
constexpr qsizetype kPageHead = 40;  // kind, counts, and the first places of cells

// A schedule's file as a failing disk or a careless copy may leave it; each time another damage,
// decided by `seed` alone.
QByteArray damaged(QByteArray bytes, unsigned seed) {
  Random random(seed);
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
  using enum BoardCommand;
  for (const auto command :
       {DailyPlan, ActivityPlan, Statistics, ActivityItems, TimeBlocks, Memo, WeekNames, Backup}) {
    board.findChild<CommandBar*>()->button(command).click();
  }
}

// The whole program on the schedule in a folder, from start-up to the board and every window.
Outcome outcomeOfProgram(const QString& folder) {
  ScriptedPrompts prompts;
  const FixedClock clock(QDate(2007, 3, 5));
  const Outcome outcome = outcomeOf([&] {
    StartUp startUp(folder, prompts, clock);
    startUp.showBoard();
    startUp.finishDamageCheck();
    QCoreApplication::processEvents();
    try {
      openEveryWindow(startUp.board());
    } catch (const std::exception& error) {
      throw std::logic_error(error.what());
    }
  });
  if (!std::all_of(prompts.warnings.begin(), prompts.warnings.end(), isChinese)) {
    return kUnexpected;
  }
  return outcome == kDone && !prompts.warnings.isEmpty() ? kRefused : outcome;
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

  // Done or refused, in a child.
  Outcome safely(const std::function<Outcome()>& work) {
    const int end = endOf(startChild([&] { return static_cast<int>(work()); }));
    EXPECT_TRUE(end == kDone || end == kRefused) << end;
    return static_cast<Outcome>(end);
  }
  Outcome readSafely() {
    return safely([this] { return outcomeOfProgram(folder_.path({})); });
  }

  const unsigned times_ = isThorough() ? 8'000 : 80;
  ScheduleBuilder original_;
  TemporaryFolder folder_;
  const QString path_ = folder_.path(u"SY.mdb"_qs);
  QByteArray whole_;
};

}  // namespace

TEST_F(DamagedSchedule, IsReadUnchangedAndSavedToOrRefusedInChinese) {
  unsigned refused = 0;
  for (unsigned seed = 0; seed < times_; ++seed) {
    const SavingJob& job = savingJobs()[seed % savingJobs().size()];
    SCOPED_TRACE(testing::Message() << "seed " << seed << ", then " << job.name);
    copyFolder(original_.folder(), folder_.path({}));
    const QStringList names = folder_.names();
    const QByteArray bytes = damaged(whole_, seed);
    writeBytes(path_, bytes);
    if (readSafely() == kRefused) ++refused;
    EXPECT_TRUE(bytesOf(path_) == bytes);
    QStringList left = folder_.names();
    left.removeAll(u"vellora.ini"_qs);  // what is remembered of the windows
    EXPECT_EQ(left, names);
    safely([&] { return outcomeOf([&] { job.run(folder_.path({}), {}); }); });
  }
  EXPECT_GT(refused, times_ / 4);
}

TEST_F(DamagedSchedule, OrOneThatCannotBeWrittenIsToldAtOnce) {
  EXPECT_EQ(safely([this] {
              breakCalls({.closed = EROFS});
              return outcomeOfProgram(original_.folder());
            }),
            kRefused);
}

TEST_F(DamagedSchedule, IsOpenedOrRefusedBesideADamagedJournal) {
  constexpr int kIntoTheSchedule = 18;  // calls
  const QString journal = path_ + u"-journal";
  for (unsigned seed = 0; seed < times_ / 4; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    copyFolder(original_.folder(), folder_.path({}));
    endOf(startChild([&] {
      breakCalls({.at = kIntoTheSchedule, .kills = true});
      savingJobs().front().run(folder_.path({}), {});
      return 0;
    }));
    const QByteArray unfinished = bytesOf(journal);
    ASSERT_GT(unfinished.size(), 8'192);
    writeBytes(journal, damaged(unfinished, seed));
    readSafely();
  }
}

}  // namespace vellora
