#pragma once

#include "store/schedule_store.h"

#include <QString>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <stop_token>

namespace vellora {

// Checks a whole schedule for damage on a thread of its own: many years of plans take longer
// than a window may stall. The schedule is open, and closed to saves, only while it is read.
class DamageCheck {
 public:
  // `onDamage` is called on the other thread, and only when the schedule is damaged. A check that
  // could not come to its end is begun again after `pause`, some times; in the end that is told on
  // standard error.
  DamageCheck(const QString& path, std::function<void()> onDamage,
              std::chrono::milliseconds pause = std::chrono::seconds(5));
  // Ends a check that goes on.
  ~DamageCheck();
  DamageCheck(const DamageCheck&) = delete;
  DamageCheck& operator=(const DamageCheck&) = delete;

  // Does nothing when it has begun already.
  void begin();
  // Lets a save that waits for the schedule go first. To be called until it does.
  void yieldToSave();
  bool isOver() const;
  // Waits for its end.
  void finish();

 private:
  void run();
  bool comesToAnEnd();
  void setCheck(std::unique_ptr<ScheduleCheck> check);

  QString path_;
  std::function<void()> on_damage_;
  std::chrono::milliseconds pause_;
  std::stop_source stop_;
  std::mutex mutex_;
  std::condition_variable_any pausing_;
  std::unique_ptr<ScheduleCheck> check_;  // while the schedule is open
  std::future<void> result_;
};

}  // namespace vellora
