#include "faults/child.h"
#include "faults/failing_calls.h"
#include "faults/saving_jobs.h"
#include "faults/schedule_folder.h"
#include "support/store_fault.h"

#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <thread>

namespace vellora {
namespace {

using namespace test;
using std::chrono::microseconds;
using Clock = std::chrono::steady_clock;

constexpr int kMet = 8;  // added to a child's outcome when something met the fault

// How often one job is tried. What is too large for the engine to keep its changes in memory until
// the end makes thousands of calls.
struct Effort {
  const char* name;
  int daysBeside;                    // of plans that no job touches
  qint64 calls, kills, room, steps;  // from one tried place to the next
  int moments;
};
constexpr Effort kShort{"short", 0, 1, 3, 1'500, 1, 4};
constexpr Effort kLong{"long", 0, 1, 1, 97, 1, 200};
constexpr Effort kLarge{"large", 2'000, 97, 97, 250'000, 997, 10};

// One kind of trouble, tried at one place after the other until the job gets by without meeting it.
struct Series {
  const char* name;
  qint64 Effort::*stride;
  qint64 CallFault::*place;
  CallFault fault;
};
constexpr Series kSeries[]{
    {"fails", &Effort::calls, &CallFault::at, {.error = EIO}},
    {"fails for good", &Effort::calls, &CallFault::at, {.error = EIO, .lasts = true}},
    {"short write", &Effort::calls, &CallFault::at, {.halves = true}},
    {"last write",
     &Effort::calls,
     &CallFault::at,
     {.error = ENOSPC, .lasts = true, .halves = true}},
    {"killed", &Effort::kills, &CallFault::at, {.kills = true}},
    {"killed in a write", &Effort::kills, &CallFault::at, {.kills = true, .halves = true}},
    {"full disk", &Effort::room, &CallFault::room, {}},
    {"cancelled", &Effort::steps, &CallFault::steps, {}}};

// What a killed program, or one whose disk has died, cannot remove.
void dropLeftOvers(FolderContent& content) {
  content.files.removeIf([](const auto& file) {
    return file.key().startsWith(u".vellora-"_qs) && file.key().endsWith(u".tmp"_qs);
  });
}

// Runs a job on copies of one schedule, in children.
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
    const auto start = Clock::now();
    ASSERT_EQ(endOf(begin({})), kDone);
    lifetime_ = std::chrono::duration_cast<microseconds>(Clock::now() - start);
    after_ = contentOf(folder_.path());
  }

  // Whether the job met the fault. Whatever the program says of it, nothing may be lost, and it
  // must say so in Chinese.
  bool meets(const CallFault& fault) {
    putBack();
    const int end = endOf(begin(fault));
    const bool isKilled = end == -SIGKILL;
    const bool isShort = fault.halves && fault.error == 0 && !isKilled;
    const FolderContent now = expectNothingLost(isKilled || fault.lasts);
    if (!isKilled) expectToldTruly(end, now);
    EXPECT_TRUE(!isShort || now == after_) << "no failure at all";
    return isKilled || (end >= 0 && (end & kMet) != 0);
  }

  void killAfter(microseconds moment) {
    putBack();
    const int child = begin({});
    std::this_thread::sleep_for(moment);
    kill(child, SIGKILL);
    endOf(child);
    expectNothingLost(true);
  }

  const SavingJob job_ = std::get<0>(GetParam());
  const Effort effort_ = std::get<1>(GetParam());
  microseconds lifetime_{};

 private:
  void putBack() const { copyFolder(original_.folder(), folder_.path()); }

  int begin(const CallFault& fault) const {
    return startChild([&] {
      breakCalls(fault);
      qint64 stepsLeft = fault.steps;
      const auto progress = [&](const WorkStep&) { return stepsLeft-- > 0; };
      const Outcome outcome = outcomeOf([&] { job_.run(folder_.path(), progress); });
      return outcome | (hasMetFault() || outcome == kCancelled ? kMet : 0);
    });
  }

  // Gives what is there. After a broken end the next run cleans up.
  FolderContent expectNothingLost(bool isBrokenOff) const {
    FolderContent now = contentOf(folder_.path());
    if (isBrokenOff) dropLeftOvers(now);
    EXPECT_TRUE(isOldOrNew(now, before_, after_, job_.keepsEntriesBeforeAFailure));
    if (!isBrokenOff) return now;
    EXPECT_EQ(endOf(begin({})), kDone);
    const FolderContent next = contentOf(folder_.path());
    EXPECT_TRUE(now.rows != before_.rows || next.rows == after_.rows);
    EXPECT_TRUE(after_.files == before_.files || next.files == after_.files);
    return now;
  }

  void expectToldTruly(int end, const FolderContent& now) const {
    const int outcome = end & ~kMet;
    const bool saidDone = outcome == kDone;
    EXPECT_TRUE(end >= 0 && outcome != kUnexpected) << end;
    EXPECT_TRUE(!saidDone || now == after_) << "it said that it was done";
    EXPECT_TRUE(outcome != kCancelled || now == before_) << "cancelled";
    const bool showsWhenDone = after_ != before_ && !job_.keepsEntriesBeforeAFailure;
    EXPECT_TRUE(saidDone || now != after_ || !showsWhenDone) << "yet it is done";
  }

  ScheduleBuilder original_;
  QTemporaryDir folder_;
  FolderContent before_, after_;
};

}  // namespace

TEST_P(Saving, LosesNothingWhateverFails) {
  for (auto [name, stride, place, fault] : kSeries) {
    for (fault.*place = 0; !HasFailure() && meets(fault);) fault.*place += effort_.*stride;
    ASSERT_FALSE(HasFailure()) << name << " at " << fault.*place;
    EXPECT_EQ(fault.*place > 0, stride != &Effort::steps || job_.canBeCancelled) << name;
  }
  for (const int error : {EROFS, EACCES}) EXPECT_TRUE(meets({.closed = error})) << error;
}

TEST_P(Saving, LosesNothingWhenKilledAtAnyMoment) {
  const auto seed = isThorough() ? std::random_device{}() : 2007;
  std::cout << "seed " << seed << std::endl;
  std::mt19937 random(seed);
  std::uniform_int_distribution<qint64> moments(0, lifetime_.count());
  for (int i = 0; i < effort_.moments; ++i) {
    const microseconds moment(moments(random));
    killAfter(moment);
    ASSERT_FALSE(HasFailure()) << "after " << moment.count() << " us, seed " << seed;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Every, Saving,
    testing::Combine(testing::ValuesIn(savingJobs().begin(), savingJobs().end()),
                     testing::ValuesIn(isThorough() ? std::vector{kLong, kLarge}
                                                    : std::vector{kShort})),
    [](const auto& test) {
      return std::get<0>(test.param).name + std::string("_") + std::get<1>(test.param).name;
    });

TEST(StoreSaving, KnowsAFullDisk) {
  ScheduleBuilder schedule;
  schedule.fullDay(20).fullPlan(kMonday, 300, 20, 3);
  EXPECT_EQ(endOf(startChild([&] {
              ScheduleStore store = schedule.store();
              breakCalls({.at = 0, .error = EDQUOT, .lasts = true, .halves = true});
              const auto fault = faultOf([&] { store.execute(u"DELETE * FROM JH"_qs); });
              return fault == StoreFault::DiskFull ? kDone : kUnexpected;
            })),
            kDone);
}

}  // namespace vellora
