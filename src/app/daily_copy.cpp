#include "app/daily_copy.h"

#include "schedule/automatic_copies.h"
#include "store/store_error.h"

#include <chrono>
#include <system_error>

namespace vellora {

DailyCopy::DailyCopy(const QString& programDir, const QString& schedule,
                     std::function<void(const QString& reason)> onFailure)
    : program_dir_(programDir), schedule_(schedule), on_failure_(std::move(onFailure)) {}

DailyCopy::~DailyCopy() {
  stop_.request_stop();
  if (result_.valid()) result_.wait();
}

void DailyCopy::begin() {
  try {
    if (!result_.valid()) result_ = std::async(std::launch::async, [this] { run(); });
  } catch (const std::system_error&) {
    on_failure_(u"系统不能再开始新的线程。"_qs);
  }
}

void DailyCopy::finish() {
  if (result_.valid()) result_.wait();
}

void DailyCopy::run() {
  constexpr int kAttempts = 20;
  constexpr std::chrono::seconds kPause(5);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (comesToAnEnd()) return;
    std::unique_lock lock(mutex_);
    pausing_.wait_for(lock, stop_.get_token(), kPause, [] { return false; });
    if (stop_.stop_requested()) return;
  }
  on_failure_(u"日程文件一直在使用中。"_qs);
}

// False when the schedule is in use.
bool DailyCopy::comesToAnEnd() {
  const QDateTime now = QDateTime::currentDateTime();
  AutomaticCopies copies(program_dir_);
  if (copies.isMadeOn(now.date())) return true;
  yields_ = false;
  try {
    ScheduleStore store(schedule_, std::chrono::milliseconds(0));
    copies.make(store, now,
                [this](const WorkStep&) { return !yields_ && !stop_.stop_requested(); });
  } catch (const WorkCancelled&) {
    return false;
  } catch (const PlannerError& error) {
    if (error.number() == static_cast<int>(StoreFault::Busy)) return false;
    on_failure_(error.description());
  }
  return true;
}

}  // namespace vellora
