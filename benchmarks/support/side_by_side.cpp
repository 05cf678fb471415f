#include "support/side_by_side.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace vellora::bench {
namespace {

double microseconds(const std::function<void()>& work) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  work();
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

void SideBySide::compare(const std::string& what, const std::function<void()>& ours,
                         const std::function<void()>& raw, int repetitions) {
  ours();
  raw();
  std::vector<double> oursTimes;
  std::vector<double> rawTimes;
  std::vector<double> ratios;
  for (int i = 0; i < repetitions; ++i) {
    oursTimes.push_back(microseconds(ours));
    rawTimes.push_back(microseconds(raw));
    ratios.push_back(oursTimes.back() / rawTimes.back());
  }
  rows_.push_back({what, "us", median(oursTimes), median(rawTimes), median(ratios)});
}

void SideBySide::record(const std::string& what, const std::string& unit, double ours, double raw) {
  rows_.push_back({what, unit, ours, raw, ours / raw});
}

void SideBySide::print() const {
  std::printf("%-48s | %4s | %12s | %12s | %5s\n", "what", "unit", "ours", "raw", "ratio");
  for (const Row& row : rows_) {
    std::printf("%-48s | %4s | %12.1f | %12.1f | %5.2f\n", row.what.c_str(), row.unit.c_str(),
                row.ours, row.raw, row.ratio);
  }
}

}  // namespace vellora::bench
