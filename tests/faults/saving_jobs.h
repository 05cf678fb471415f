#pragma once

#include "support/schedule_builder.h"

#include <QString>

#include <span>

namespace vellora::test {

// One thing that the program writes, done in a folder of fillSchedule() with the functions that
// its window calls.
struct SavingJob {
  const char* name;
  // Throws StoreError, FileError, BackupError or Refusal when it says that it could not be done.
  void (*run)(const QString& folder);
  bool keepsEntriesBeforeAFailure = false;  // which are then saved one by one
};

std::span<const SavingJob> savingJobs();

// A schedule on which every job changes something, with old files to replace and a backup of
// something else to restore.
void fillSchedule(ScheduleBuilder& schedule);

}  // namespace vellora::test
