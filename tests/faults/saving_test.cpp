#include "faults/saving_test.h"

#include "faults/told.h"
#include "support/text_output.h"

#include <csignal>
#include <thread>

namespace vellora::test {
namespace {

// Added to what a child tells when a call met the fault.
constexpr int kMet = 8;

bool isLeftOver(const QString& name) {
  return name.startsWith(u".vellora-"_qs) && name.endsWith(u".tmp"_qs);
}

void dropLeftOvers(FolderContent& content) {
  content.files.removeIf([](const auto& file) { return isLeftOver(file.key()); });
}

}  // namespace

SavingTest::SavingTest(void (*fill)(ScheduleBuilder&)) {
  fill(original_);
}

ChildEnd SavingTest::run(const CallFault& fault) {
  return endOf([&] {
    breakCalls(fault);
    const int told = toldBy([&] { job_->run(folder_.path()); });
    return told | (hasMetFault() ? kMet : 0);
  });
}

void SavingTest::take(const SavingJob& job) {
  job_ = &job;
  putBack();
  before_ = contentOf(folder_.path());
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(run({}), (ChildEnd{.code = kDone}));
  lifetime_ = std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now() - start);
  after_ = contentOf(folder_.path());
}

bool SavingTest::meets(const CallFault& fault) {
  putBack();
  const ChildEnd end = run(fault);
  const bool isKilled = end.signal == SIGKILL;
  FolderContent now = contentOf(folder_.path());
  if (isKilled || fault.kind == CallFault::Kind::FailsFromThenOn) {
    dropLeftOvers(now);
    expectNextRunCleansUp(now);
  }
  expectOldOrNew(now);
  if (!isKilled) expectToldTruly(end, now);
  EXPECT_TRUE(fault.kind != CallFault::Kind::WritesHalf || now == after_) << "no failure at all";
  return isKilled || (end.signal == 0 && (end.code & kMet) != 0);
}

int SavingTest::meetsAtEveryCall(CallFault fault, int stride) {
  int runs = 0;
  for (fault.at = 0; !HasFailure(); fault.at += stride, ++runs) {
    SCOPED_TRACE(testing::Message() << job_->name << ", call " << fault.at);
    if (!meets(fault)) break;
  }
  return runs;
}

void SavingTest::killAtMoment(std::chrono::microseconds moment) {
  putBack();
  SCOPED_TRACE(testing::Message() << job_->name << ", after " << moment.count() << " us");
  {
    ChildProcess child([&] { return int{toldBy([&] { job_->run(folder_.path()); })}; });
    std::this_thread::sleep_for(moment);
    child.kill();
    child.wait();
  }
  FolderContent now = contentOf(folder_.path());
  dropLeftOvers(now);
  expectOldOrNew(now);
  expectNextRunCleansUp(now);
}

void SavingTest::expectOldOrNew(const FolderContent& now) const {
  EXPECT_TRUE(job_->keepsEntriesBeforeAFailure ? isOldOrNewByEntry(now, before_, after_)
                                               : isOldOrNew(now, before_, after_));
}

void SavingTest::expectToldTruly(const ChildEnd& end, const FolderContent& now) const {
  const int told = end.code & ~kMet;
  const bool saidDone = told == kDone || told == kDoneDespiteAnError;
  EXPECT_TRUE(end.signal == 0 && (saidDone || told == kRefused)) << end;
  EXPECT_TRUE(!saidDone || now == after_) << "it said that it was done";
  const bool showsWhenDone = after_ != before_ && !job_->keepsEntriesBeforeAFailure;
  EXPECT_TRUE(saidDone || now != after_ || !showsWhenDone) << "yet it is done";
}

// `found` is what the run before left, without the files that a killed program, or one whose disk
// has died, cannot remove.
void SavingTest::expectNextRunCleansUp(const FolderContent& found) {
  ASSERT_EQ(run({}), (ChildEnd{.code = kDone}));
  const FolderContent now = contentOf(folder_.path());
  EXPECT_TRUE(found.tables != before_.tables || now.tables == after_.tables);
  EXPECT_TRUE(after_.files == before_.files || now.files == after_.files);
}

}  // namespace vellora::test
