#pragma once

#include "routine/planner_error.h"

namespace vellora {

// Why a file could not be read or written.
class FileError : public PlannerError {
 public:
  explicit FileError(const QString& description) : PlannerError(kNumber, description) {}

 private:
  static constexpr int kNumber = 101;  // stands before those of BackupError
};

// The file is written and in its place, but the disk refused the last step.
class WrittenFileError final : public FileError {
 public:
  explicit WrittenFileError(const QString& path);
};

// The sentences for a failed system call, by its errno.
FileError cannotWrite(const QString& path, int systemError);
FileError cannotRead(const QString& path, int systemError);

}  // namespace vellora
