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

// What a job meets: calls that fail, or a user who cancels it.
struct Trouble {
  CallFault calls;
  qint64 stepsLeft = std::numeric_limits<qint64>::max();
};

// How often one job is tried. What is too large for the engine to keep its changes in memory until
// the end makes thousands of calls.
struct Effort {
  const char* name;
  int daysBeside;  // of plans that no job touches
  qint64 callStride;
  qint64 killStride;
  qint64 roomStride;
  qint64 stepStride;
  int moments;
};
constexpr Effort kShort{"short", 0, 1, 3, 1'500, 1, 4};
constexpr Effort kLong{"long", 0, 1, 1, 97, 1, 200};
constexpr Effort kLarge{"large", 2'000, 97, 97, 50'000, 997, 10};

// One kind of trouble, tried at every n-th place until the job gets by without meeting it.
struct Series {
  const char* name;
  qint64 Effort::*stride;
  Trouble (*at)(qint64 place);
};
constexpr Series kSeries[]{
    {"a call fails", &Effort::callStride,
     [](qint64 n) { return Trouble{{.at = n, .error = EIO}}; }},
    {"calls fail from then on", &Effort::callStride,
     [](qint64 n) { return Trouble{{.at = n, .error = EIO, .lasts = true}}; }},
    {"a write is short", &Effort::callStride,
     [](qint64 n) { return Trouble{{.at = n, .halves = true}}; }},
    {"a write is short and the last", &Effort::callStride,
     [](qint64 n) { return Trouble{{.at = n, .error = ENOSPC, .lasts = true, .halves = true}}; }},
    {"killed", &Effort::killStride, [](qint64 n) { return Trouble{{.at = n, .kills = true}}; }},
    {"killed in a write", &Effort::killStride,
     [](qint64 n) { return Trouble{{.at = n, .kills = true, .halves = true}}; }},
    {"full disk", &Effort::roomStride, [](qint64 n) { return Trouble{{.room = n}}; }},
    {"cancelled", &Effort::stepStride, [](qint64 n) {
       return Trouble{{}, n};
     }}};

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

  // Whether the job met the trouble. Whatever the program says of it, nothing may be lost, and it
  // must say so in Chinese.
  bool meets(const Trouble& trouble) {
    putBack();
    const int end = endOf(begin(trouble));
    const bool isKilled = end == -SIGKILL;
    const bool isShort = trouble.calls.halves && trouble.calls.error == 0 && !isKilled;
    const FolderContent now = expectNothingLost(isKilled || trouble.calls.lasts);
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

  int begin(const Trouble& trouble) const {
    return startChild([&] {
      breakCalls(trouble.calls);
      qint64 stepsLeft = trouble.stepsLeft;
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
  for (const Series& series : kSeries) {
    qint64 place = 0;
    while (!HasFailure() && meets(series.at(place))) place += effort_.*series.stride;
    ASSERT_FALSE(HasFailure()) << series.name << " at " << place;
    const bool canHappen = series.stride != &Effort::stepStride || job_.canBeCancelled;
    EXPECT_EQ(place > 0, canHappen) << series.name;
  }
  for (const int error : {EROFS, EACCES}) EXPECT_TRUE(meets({{.closed = error}})) << error;
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
