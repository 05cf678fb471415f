#pragma once

#include <QString>

#include <functional>

namespace vellora {

// How far a backup or a restore is.
struct BackupStep {
  QString what;
  qint64 done = 0;
  qint64 total = 0;     // 0 while it is not known
  bool canStop = true;  // false once what is done cannot be taken back
};

// Told often while the work goes on; false gives it up, as if it had never begun.
using BackupProgress = std::function<bool(const BackupStep&)>;

// Thrown through the work when it is given up.
struct BackupGivenUp {};

// Passes on one step; throws BackupGivenUp.
inline void report(const BackupProgress& progress, const BackupStep& step) {
  if (progress && !progress(step) && step.canStop) throw BackupGivenUp();
}

}  // namespace vellora
