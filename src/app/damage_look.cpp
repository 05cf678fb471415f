#include "app/damage_look.h"

#include "routine/work_step.h"
#include "store/store_error.h"

#include <QTextStream>

#include <system_error>

namespace vellora {
namespace {

void tellOnStandardError(const QString& sentence) {
  QTextStream(stderr) << sentence << Qt::endl;
}

}  // namespace

DamageLook::DamageLook(const QString& path, std::function<void()> tell,
                       std::chrono::milliseconds pause)
    : path_(path), tell_(std::move(tell)), pause_(pause) {}

DamageLook::~DamageLook() {
  constexpr std::chrono::milliseconds kAMoment(1);
  stop_.request_stop();
  if (!look_.valid()) return;
  do {
    makeWay();
  } while (look_.wait_for(kAMoment) != std::future_status::ready);
}

void DamageLook::begin() {
  if (look_.valid()) return;
  try {
    look_ = std::async(std::launch::async, [this] { run(); });
  } catch (const std::system_error&) {
    tellOnStandardError(u"系统不能再开始新的线程，没有检查日程文件是否损坏。"_qs);
  }
}

void DamageLook::makeWay() {
  const std::lock_guard guard(mutex_);
  if (check_) check_->interrupt();
}

bool DamageLook::isOver() const {
  return look_.valid() && look_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

void DamageLook::finish() {
  if (look_.valid()) look_.wait();
}

void DamageLook::run() {
  constexpr int kLooks = 20;
  for (int look = 0; look < kLooks; ++look) {
    if (comesToAnEnd()) return;
    std::unique_lock lock(mutex_);
    pausing_.wait_for(lock, stop_.get_token(), pause_, [] { return false; });
    if (stop_.stop_requested()) return;
  }
  tellOnStandardError(u"日程文件一直在使用中，没有检查它是否损坏。"_qs);
}

// False when the schedule is in use.
bool DamageLook::comesToAnEnd() {
  try {
    setCheck(std::make_unique<ScheduleCheck>(path_));
    const bool isSound = check_->isSound();
    setCheck(nullptr);
    if (!isSound) tell_();
    return true;
  } catch (const WorkGivenUp&) {
    setCheck(nullptr);
    return false;
  } catch (const StoreError& error) {
    setCheck(nullptr);
    if (error.fault() == StoreFault::Damaged) tell_();
    return error.fault() != StoreFault::Busy;
  }
}

void DamageLook::setCheck(std::unique_ptr<ScheduleCheck> check) {
  const std::lock_guard guard(mutex_);
  check_ = std::move(check);
}

}  // namespace vellora
