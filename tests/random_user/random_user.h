#pragma once

#include <QString>

#include <set>

namespace vellora::test {

struct Run {
  quint64 seed = 1;
  int steps = 500;
  std::set<int> only;  // steps to take; empty for all
};

// Lives a user's life with the whole program on a schedule of its own, and tells on standard output
// every deed before it is done and every fault found. Ends the process.
[[noreturn]] void liveRandomly(const Run& run);

}  // namespace vellora::test
