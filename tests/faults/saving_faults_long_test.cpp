#include "faults/saving_test.h"
#include "support/text_output.h"

#include <cerrno>
#include <random>

// What saving_faults_test.cpp asks, at every call and many more moments, and of a schedule that is
// too large for the engine to keep its changes in memory until the end.
namespace vellora {
namespace {

using test::CallFault;
using test::SavingJob;
using test::ScheduleBuilder;
using Kind = test::CallFault::Kind;

const QDate kMonday(2007, 3, 5);

class SavingAtEveryCall : public test::SavingTest {};

void fillLarge(ScheduleBuilder& schedule) {
  schedule.fullPlan(kMonday.addDays(100), 2'000, 20, 2);
  test::fillSchedule(schedule);
}

class SavingMuch : public test::SavingTest {
 protected:
  SavingMuch() : SavingTest(fillLarge) {}
};

}  // namespace

TEST_F(SavingAtEveryCall, LosesNothingWhenKilled) {
  for (const SavingJob& job : test::savingJobs()) {
    take(job);
    for (const Kind kind : {Kind::Kills, Kind::KillsHalfway}) {
      EXPECT_GT(meetsAtEveryCall({.kind = kind}), 3) << job.name;
    }
  }
}

TEST_F(SavingAtEveryCall, LosesNothingWhenKilledAtAnyMoment) {
  std::mt19937 random(std::random_device{}());
  for (const SavingJob& job : test::savingJobs()) {
    take(job);
    std::uniform_int_distribution<qint64> moments(0, lifetime().count());
    for (int i = 0; i < 200 && !HasFailure(); ++i) {
      killAtMoment(std::chrono::microseconds(moments(random)));
    }
  }
}

TEST_F(SavingAtEveryCall, LosesNothingOnADiskThatIsFullAfterAnyByte) {
  constexpr qint64 kStep = 97;
  for (const SavingJob& job : test::savingJobs()) {
    take(job);
    qint64 room = 0;
    while (!HasFailure() && meets({.room = room})) room += kStep;
  }
}

TEST_F(SavingMuch, LosesNothingWhateverFails) {
  constexpr int kCallsBetween = 97;
  for (const SavingJob& job : test::savingJobs()) {
    take(job);
    for (const CallFault& fault : {CallFault{.kind = Kind::FailsOnce, .error = EIO},
                                   CallFault{.kind = Kind::WritesHalfThenFails, .error = ENOSPC},
                                   CallFault{.kind = Kind::FailsFromThenOn, .error = EIO},
                                   CallFault{.kind = Kind::KillsHalfway}}) {
      EXPECT_GT(meetsAtEveryCall(fault, kCallsBetween), 0) << job.name;
    }
  }
}

}  // namespace vellora
