#include "app/damage_check.h"

#include "routine/work_step.h"
#include "store/store_error.h"

#include <QTextStream>

#include <system_error>

namespace vellora {
namespace {

void writeToStandardError(const QString& sentence) {
  QTextStream(stderr) << sentence << Qt::endl;
}

}  // namespace

DamageCheck::DamageCheck(const QString& path, std::function<void()> onDamage,
                         std::chrono::milliseconds pause)
    : path_(path), on_damage_(std::move(onDamage)), pause_(pause) {}

DamageCheck::~DamageCheck() {
  constexpr std::chrono::milliseconds kAMoment(1);
  stop_.request_stop();
  if (!result_.valid()) return;
  do {
    yieldToSave();
  } while (result_.wait_for(kAMoment) != std::future_status::ready);
}

void DamageCheck::begin() {
  if (result_.valid()) return;
  try {
    result_ = std::async(std::launch::async, [this] { run(); });
  } catch (const std::system_error&) {
    writeToStandardError(u"系统不能再开始新的线程，没有检查日程文件是否损坏。"_qs);
  }
}

void DamageCheck::yieldToSave() {
  const std::lock_guard guard(mutex_);
  if (check_) check_->interrupt();
}

bool DamageCheck::isOver() const {
  return result_.valid() && result_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

void DamageCheck::finish() {
  if (result_.valid()) result_.wait();
}

void DamageCheck::run() {
  constexpr int kAttempts = 20;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (comesToAnEnd()) return;
    std::unique_lock lock(mutex_);
    pausing_.wait_for(lock, stop_.get_token(), pause_, [] { return false; });
    if (stop_.stop_requested()) return;
  }
  writeToStandardError(u"日程文件一直在使用中，没有检查它是否损坏。"_qs);
}

// False when the schedule is in use.
bool DamageCheck::comesToAnEnd() {
  try {
    setCheck(std::make_unique<ScheduleCheck>(path_));
    const bool isSound = check_->isSound();
    setCheck(nullptr);
    if (!isSound) on_damage_();
    return true;
  } catch (const WorkCancelled&) {
    setCheck(nullptr);
    return false;
  } catch (const StoreError& error) {
    setCheck(nullptr);
    if (error.fault() == StoreFault::Damaged) on_damage_();
    return error.fault() != StoreFault::Busy;
  }
}

void DamageCheck::setCheck(std::unique_ptr<ScheduleCheck> check) {
  const std::lock_guard guard(mutex_);
  check_ = std::move(check);
}

}  // namespace vellora
