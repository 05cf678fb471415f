#pragma once

#include <QStringList>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vellora::bench {

// The largest ratio that is good enough.
using Target = std::optional<double>;

// Times two ways of doing the same work in turn, so that a slow spell of the machine meets both,
// and prints a table of medians: measure | ours | raw limit | ratio | target.
class SideBySide {
 public:
  // Both are run once unmeasured, then `repetitions` times each.
  void compare(const std::string& what, const std::function<void()>& ours,
               const std::function<void()>& raw, int repetitions, Target target = {});

  // Adds what was measured otherwise, in the unit "us", "ms" or "KiB".
  void record(const std::string& what, const std::string& unit, double ours, double raw,
              Target target = {});

  // The table of everything compared as Markdown, on standard output. A ratio beyond its target is
  // in bold face.
  void print() const;

 private:
  // `ratio` is the median of the ratios of neighbouring runs.
  void add(const std::string& what, const std::string& unit, double ours, double raw, double ratio,
           Target target);

  std::vector<QStringList> rows_;
};

// The middle value; `values` is not empty.
double medianOf(std::vector<double> values);

}  // namespace vellora::bench
