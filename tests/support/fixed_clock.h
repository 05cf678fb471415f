#pragma once

#include "routine/clock.h"

namespace vellora::test {

// A clock that stands still until it is set.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(QDate day) : day_(day) {}
  QDate today() const override { return day_; }
  void set(QDate day) { day_ = day; }

 private:
  QDate day_;
};

}  // namespace vellora::test
