#pragma once

#include <QDate>

namespace vellora {

// Where the windows learn what day it is.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual QDate today() const = 0;
};

class SystemClock final : public Clock {
 public:
  QDate today() const override;
};

}  // namespace vellora
