#pragma once

#include <QString>

#include <functional>

namespace vellora {

// How far long work is.
struct WorkStep {
  QString what;
  qint64 done = 0;
  qint64 total = 0;     // 0 while it is not known
  bool canStop = true;  // false once what is done cannot be taken back
};

// Told often while the work goes on; false gives it up, as if it had never begun.
using WorkProgress = std::function<bool(const WorkStep&)>;

// Thrown through the work when it is given up.
struct WorkCancelled {};

// Passes on one step; false to give the work up.
inline bool mayContinue(const WorkProgress& progress, const WorkStep& step) {
  return !progress || progress(step) || !step.canStop;
}

// Passes on one step; throws WorkCancelled.
inline void report(const WorkProgress& progress, const WorkStep& step) {
  if (!mayContinue(progress, step)) throw WorkCancelled();
}

}  // namespace vellora
