#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vellora::bench {

// Times two ways of doing the same work in turn, so that a slow spell of the machine meets both,
// and prints a table of medians: what | unit | ours | raw | ratio.
class SideBySide {
 public:
  // Both are run once unmeasured, then `repetitions` times each.
  void compare(const std::string& what, const std::function<void()>& ours,
               const std::function<void()>& raw, int repetitions);

  // Adds what was measured otherwise.
  void record(const std::string& what, const std::string& unit, double ours, double raw);

  // The table of everything compared, on standard output.
  void print() const;

 private:
  struct Row {
    std::string what;
    std::string unit;
    double ours;
    double raw;
    double ratio;  // median of the ratios of neighbouring runs
  };

  std::vector<Row> rows_;
};

}  // namespace vellora::bench
