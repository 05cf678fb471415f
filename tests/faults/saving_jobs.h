#pragma once

#include "routine/work_step.h"
#include "support/schedule_builder.h"

#include <span>

namespace vellora::test {

// One thing that the program writes, done in a folder of fillSchedule() with the functions that
// its window calls.
struct SavingJob {
  const char* name;
  // Throws what outcomeOf() knows.
  void (*run)(const QString& folder, const WorkProgress& progress);
  bool canBeCancelled = false;
  bool keepsEntriesBeforeAFailure = false;  // which are then saved one by one
};

std::span<const SavingJob> savingJobs();

// A schedule on which every job changes something, with old files to replace and a backup of
// something else to restore.
void fillSchedule(ScheduleBuilder& schedule);

}  // namespace vellora::test
