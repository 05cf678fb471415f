#pragma once

#include <QString>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <future>
#include <mutex>
#include <stop_token>

namespace vellora {

// Makes the day's automatic copy on a thread of its own, over a connection of its own.
class DailyCopy {
 public:
  // `onFailure` is called on the other thread, with the reason.
  DailyCopy(const QString& programDir, const QString& schedule,
            std::function<void(const QString& reason)> onFailure);
  // Ends a copy that is being made, without a trace.
  ~DailyCopy();
  DailyCopy(const DailyCopy&) = delete;
  DailyCopy& operator=(const DailyCopy&) = delete;

  void begin();
  // Lets a save that waits for the schedule go first; the copy is begun again later.
  void yieldToSave() { yields_ = true; }
  // Waits for its end.
  void finish();

 private:
  void run();
  bool comesToAnEnd();

  QString program_dir_;
  QString schedule_;
  std::function<void(const QString&)> on_failure_;
  std::stop_source stop_;
  std::atomic<bool> yields_ = false;
  std::mutex mutex_;
  std::condition_variable_any pausing_;
  std::future<void> result_;
};

}  // namespace vellora
