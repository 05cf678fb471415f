#include "faults/saving_test.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <cerrno>
#include <random>

namespace vellora {
namespace {

using test::CallFault;
using test::SavingJob;
using Kind = test::CallFault::Kind;

class Saving : public test::SavingTest {
 protected:
  void forEveryJob(const CallFault& fault, int stride = 1) {
    for (const SavingJob& job : test::savingJobs()) {
      take(job);
      EXPECT_GT(meetsAtEveryCall(fault, stride), 3 / stride) << job.name;
      if (HasFailure()) return;
    }
  }
};

}  // namespace

TEST_F(Saving, LosesNothingWhenAnyOneCallFails) {
  forEveryJob({.kind = Kind::FailsOnce, .error = EIO});
}

TEST_F(Saving, LosesNothingWhenEveryCallFailsFromAnyOneOn) {
  forEveryJob({.kind = Kind::FailsFromThenOn, .error = EIO});
}

TEST_F(Saving, GoesOnAfterAWriteThatWroteHalf) {
  forEveryJob({.kind = Kind::WritesHalf});
}

TEST_F(Saving, LosesNothingWhenAnyWriteStopsHalfway) {
  forEveryJob({.kind = Kind::WritesHalfThenFails, .error = ENOSPC});
}

TEST_F(Saving, LosesNothingWhenKilledBeforeACallOrInTheMiddleOfIt) {
  constexpr int kSome = 3;
  forEveryJob({.kind = Kind::Kills}, kSome);
  forEveryJob({.kind = Kind::KillsHalfway}, kSome);
}

TEST_F(Saving, LosesNothingWhenKilledAtAnyMoment) {
  std::mt19937 random(2007);
  for (const SavingJob& job : test::savingJobs()) {
    take(job);
    std::uniform_int_distribution<qint64> moments(0, lifetime().count());
    for (int i = 0; i < 4; ++i) killAtMoment(std::chrono::microseconds(moments(random)));
  }
}

TEST_F(Saving, LosesNothingOnAFullDisk) {
  constexpr qint64 kStep = 1'500;
  for (const SavingJob& job : test::savingJobs()) {
    take(job);
    qint64 room = 0;
    while (!HasFailure() && meets({.room = room})) room += kStep;
    EXPECT_GT(room, 0) << job.name;
  }
}

TEST(AStore, SaysWhatTheDiskRefuses) {
  const std::pair<CallFault, StoreFault> cases[]{
      {{.kind = Kind::WritesHalfThenFails, .error = EDQUOT}, StoreFault::DiskFull},
      {{.isUnreadable = true}, StoreFault::InputOutput}};
  test::ScheduleBuilder schedule;
  schedule.fullDay(20).fullPlan(QDate(2007, 3, 5), 300, 20, 3);
  for (const auto& [refused, fault] : cases) {
    const auto met = test::endOf([&, refuse = refused] {
      ScheduleStore store = schedule.store();
      test::breakCalls(refuse);
      const auto found = test::faultOf([&] { store.execute(u"DELETE * FROM JH"_qs); });
      return static_cast<int>(found.value_or(StoreFault::Other));
    });
    EXPECT_EQ(met.code, static_cast<int>(fault));
  }
}

TEST_F(Saving, LosesNothingWhereNothingCanBeWritten) {
  for (const SavingJob& job : test::savingJobs()) {
    take(job);
    EXPECT_TRUE(meets({.isReadOnly = true})) << job.name;
  }
}

}  // namespace vellora
