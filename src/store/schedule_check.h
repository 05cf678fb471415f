#pragma once

#include <QString>

#include <memory>

namespace vellora {

class Connection;

// Looks a whole schedule through for damage that nobody has met yet, on a connection of its own and
// for reading alone: 25 ms for twenty years of plans. Another program that is writing is not waited
// for. Everything but interrupt() throws StoreError.
class ScheduleCheck {
 public:
  explicit ScheduleCheck(const QString& path);
  ~ScheduleCheck();
  ScheduleCheck(const ScheduleCheck&) = delete;
  ScheduleCheck& operator=(const ScheduleCheck&) = delete;

  // Nobody can save to the schedule meanwhile. Ends with WorkGivenUp when it is interrupted.
  bool isSound();
  // From any thread; in vain while isSound() has not begun to read.
  void interrupt();

 private:
  std::unique_ptr<Connection> connection_;
};

}  // namespace vellora
