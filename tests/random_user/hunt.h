#pragma once

#include <QtGlobal>

namespace vellora::test {

struct HuntPlan {
  quint64 seed;
  int steps;          // in all
  int stepsOfLife;    // after which a new schedule is begun
  int shrinkSeconds;  // for each fault; 0 to leave it as it was met
};

// Sends one child after the other into random lives and tells the faults that they meet. Returns 0
// when there was none.
int hunt(const HuntPlan& plan);

}  // namespace vellora::test
