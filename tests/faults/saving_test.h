#pragma once

#include "faults/child_process.h"
#include "faults/failing_calls.h"
#include "faults/saving_jobs.h"
#include "faults/schedule_folder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellora::test {

// Runs jobs on copies of one schedule, in children whose calls fail.
class SavingTest : public testing::Test {
 protected:
  explicit SavingTest(void (*fill)(ScheduleBuilder&) = fillSchedule);

  // Finds out what the job changes when nothing fails.
  void take(const SavingJob& job);
  // Puts the folder back, runs the job with this fault, and checks that nothing is lost, whatever
  // the program says, and that it says so in Chinese. Returns whether a call met the fault.
  bool meets(const CallFault& fault);
  // The same for every call in turn, every `stride`th of them, until none is left to fail. Returns
  // how many runs met the fault.
  int meetsAtEveryCall(CallFault fault, int stride = 1);
  // Kills the job at some moment of its life.
  void killAtMoment(std::chrono::microseconds moment);
  std::chrono::microseconds lifetime() const { return lifetime_; }

 private:
  ChildEnd run(const CallFault& fault);
  void putBack() const { copyFolder(original_.folder(), folder_.path()); }
  void expectOldOrNew(const FolderContent& now) const;
  void expectToldTruly(const ChildEnd& end, const FolderContent& now) const;
  void expectNextRunCleansUp(const FolderContent& found);

  ScheduleBuilder original_;
  QTemporaryDir folder_;
  const SavingJob* job_ = nullptr;
  FolderContent before_;
  FolderContent after_;
  std::chrono::microseconds lifetime_{};
};

}  // namespace vellora::test
