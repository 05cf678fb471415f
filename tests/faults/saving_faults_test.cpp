#include "faults/child.h"
#include "faults/failing_calls.h"
#include "faults/saving_jobs.h"
#include "faults/schedule_folder.h"
#include "support/store_fault.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace vellora {
namespace {

using namespace test;
using std::chrono::microseconds;
using Kind = CallFault::Kind;

constexpr int kMet = 8;  // added to what a child tells when a call met the fault

// How often one job is tried. What is too large for the engine to keep its changes in memory until
// the end makes thousands of calls.
struct Effort {
  const char* name;
  int daysBeside;  // of plans that no job touches
  int callsBetween;
  int killsBetween;
  int moments;
  qint64 roomBetween;
};
constexpr Effort kShort{"short", 0, 1, 3, 4, 1'500};
constexpr Effort kLong{"long", 0, 1, 1, 200, 97};
constexpr Effort kLarge{"large", 2'000, 97, 97, 10, 50'000};

// What a killed program, or one whose disk has died, cannot remove.
void dropLeftOvers(FolderContent& content) {
  content.files.removeIf([](const auto& file) {
    return file.key().startsWith(u".vellora-"_qs) && file.key().endsWith(u".tmp"_qs);
  });
}

// Runs a job on copies of one schedule, in children whose calls fail.
class Saving : public testing::TestWithParam<std::tuple<SavingJob, Effort>> {
 protected:
  // Finds out what the job changes when nothing fails.
  void SetUp() override {
    if (effort_.daysBeside > 0) {
      original_.fullPlan(kMonday.addDays(100), effort_.daysBeside, 20, 2);
    }
    fillSchedule(original_);
    putBack();
    before_ = contentOf(folder_.path());
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(run({}), kDone);
    lifetime_ = std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - start);
    after_ = contentOf(folder_.path());
  }

  // Runs the job with this fault and checks that nothing is lost, whatever the program says, and
  // that it says so in Chinese. Returns whether a call met the fault.
  bool meets(const CallFault& fault) {
    putBack();
    const int end = run(fault);
    const bool isKilled = end == -SIGKILL;
    FolderContent now = contentOf(folder_.path());
    if (isKilled || fault.kind == Kind::FailsFromThenOn) {
      dropLeftOvers(now);
      expectNextRunCleansUp(now);
    }
    EXPECT_TRUE(isOldOrNew(now, before_, after_, job_.keepsEntriesBeforeAFailure));
    if (!isKilled) expectToldTruly(end, now);
    EXPECT_TRUE(fault.kind != Kind::WritesHalf || now == after_) << "no failure at all";
    return isKilled || (end >= 0 && (end & kMet) != 0);
  }

  void killAt(microseconds moment) {
    putBack();
    const int child = startChild([&] { return int{toldBy([&] { job_.run(folder_.path()); })}; });
    std::this_thread::sleep_for(moment);
    kill(child, SIGKILL);
    endOf(child);
    FolderContent now = contentOf(folder_.path());
    dropLeftOvers(now);
    EXPECT_TRUE(isOldOrNew(now, before_, after_, job_.keepsEntriesBeforeAFailure));
    expectNextRunCleansUp(now);
  }

  const SavingJob job_ = std::get<0>(GetParam());
  const Effort effort_ = std::get<1>(GetParam());
  microseconds lifetime_{};

 private:
  int run(const CallFault& fault) {
    return endOf(startChild([&] {
      breakCalls(fault);
      const int told = toldBy([&] { job_.run(folder_.path()); });
      return told | (hasMetFault() ? kMet : 0);
    }));
  }
  void putBack() const { copyFolder(original_.folder(), folder_.path()); }

  void expectToldTruly(int end, const FolderContent& now) const {
    const int told = end & ~kMet;
    const bool saidDone = told == kDone || told == kDoneDespiteAnError;
    EXPECT_TRUE(end >= 0 && (saidDone || told == kRefused)) << end;
    EXPECT_TRUE(!saidDone || now == after_) << "it said that it was done";
    const bool showsWhenDone = after_ != before_ && !job_.keepsEntriesBeforeAFailure;
    EXPECT_TRUE(saidDone || now != after_ || !showsWhenDone) << "yet it is done";
  }

  void expectNextRunCleansUp(const FolderContent& found) {
    ASSERT_EQ(run({}), kDone);
    const FolderContent now = contentOf(folder_.path());
    EXPECT_TRUE(found.rows != before_.rows || now.rows == after_.rows);
    EXPECT_TRUE(after_.files == before_.files || now.files == after_.files);
  }

  ScheduleBuilder original_;
  QTemporaryDir folder_;
  FolderContent before_, after_;
};

}  // namespace

TEST_P(Saving, LosesNothingWhicheverCallFails) {
  for (CallFault fault :
       {CallFault{.kind = Kind::FailsOnce, .error = EIO},
        CallFault{.kind = Kind::FailsFromThenOn, .error = EIO}, CallFault{.kind = Kind::WritesHalf},
        CallFault{.kind = Kind::WritesHalfThenFails, .error = ENOSPC},
        CallFault{.kind = Kind::Kills}, CallFault{.kind = Kind::KillsHalfway}}) {
    const bool kills = fault.kind == Kind::Kills || fault.kind == Kind::KillsHalfway;
    const int stride = kills ? effort_.killsBetween : effort_.callsBetween;
    for (fault.at = 0; !HasFailure() && meets(fault);) fault.at += stride;
    EXPECT_GT(fault.at, 3) << "calls";
    ASSERT_FALSE(HasFailure()) << "fault " << int(fault.kind) << " at call " << fault.at;
  }
}

TEST_P(Saving, LosesNothingWhenKilledAtAnyMoment) {
  const auto seed = isThorough() ? std::random_device{}() : 2007;
  std::mt19937 random(seed);
  std::uniform_int_distribution<qint64> moments(0, lifetime_.count());
  for (int i = 0; i < effort_.moments; ++i) {
    const microseconds moment(moments(random));
    killAt(moment);
    ASSERT_FALSE(HasFailure()) << "after " << moment.count() << " us, seed " << seed;
  }
}

TEST_P(Saving, LosesNothingOnAFullDisk) {
  qint64 room = 0;
  while (!HasFailure() && meets({.room = room})) room += effort_.roomBetween;
  EXPECT_GT(room, 0);
}

TEST_P(Saving, LosesNothingWhereNothingCanBeWritten) {
  EXPECT_TRUE(meets({.isReadOnly = true}));
}

INSTANTIATE_TEST_SUITE_P(
    Every, Saving,
    testing::Combine(testing::ValuesIn(savingJobs().begin(), savingJobs().end()),
                     testing::ValuesIn(isThorough() ? std::vector{kLong, kLarge}
                                                    : std::vector{kShort})),
    [](const auto& test) {
      return std::get<0>(test.param).name + std::string("_") + std::get<1>(test.param).name;
    });

TEST(StoreSaving, SaysWhatTheDiskRefuses) {
  const std::pair<CallFault, StoreFault> cases[]{
      {{.kind = Kind::WritesHalfThenFails, .error = EDQUOT}, StoreFault::DiskFull},
      {{.isUnreadable = true}, StoreFault::InputOutput}};
  ScheduleBuilder schedule;
  schedule.fullDay(20).fullPlan(kMonday, 300, 20, 3);
  for (const auto& [refused, fault] : cases) {
    const int met = endOf(startChild([&, refuse = refused] {
      ScheduleStore store = schedule.store();
      breakCalls(refuse);
      const auto found = faultOf([&] { store.execute(u"DELETE * FROM JH"_qs); });
      return static_cast<int>(found.value_or(StoreFault::Other));
    }));
    EXPECT_EQ(met, static_cast<int>(fault));
  }
}

}  // namespace vellora
