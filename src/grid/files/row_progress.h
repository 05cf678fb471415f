#pragma once

#include "routine/work_step.h"

namespace vellora {

// Passes on one of many rows only: a row is written in less time than it takes to tell. Throws
// WorkGivenUp.
inline void reportRow(const WorkProgress& progress, const QString& what, qint64 row, qint64 rows) {
  constexpr qint64 kRowsPerStep = 256;
  if (row % kRowsPerStep == 0) report(progress, {what, row, rows});
}

}  // namespace vellora
