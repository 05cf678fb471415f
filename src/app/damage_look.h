#pragma once

#include "store/schedule_store.h"

#include <QString>

#include <functional>
#include <future>
#include <memory>
#include <mutex>

namespace vellora {

// Looks a whole schedule through for damage that nobody has met yet, on a connection and a thread
// of its own: many years of plans take longer than a window may stall.
class DamageLook {
 public:
  DamageLook() = default;
  // Ends a look that goes on.
  ~DamageLook();
  DamageLook(const DamageLook&) = delete;
  DamageLook& operator=(const DamageLook&) = delete;

  // Does nothing when it has begun already. `tell` is called on the other thread, and only when the
  // schedule is damaged.
  void begin(const QString& path, const std::function<void()>& tell);
  // Waits for its end.
  void finish();

 private:
  void open(const QString& path);
  bool findsDamage(const QString& path);
  void interrupt();

  std::mutex opening_;
  std::unique_ptr<ScheduleStore> store_;
  std::future<void> look_;
};

}  // namespace vellora
