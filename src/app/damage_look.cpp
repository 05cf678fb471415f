#include "app/damage_look.h"

#include "store/store_error.h"

namespace vellora {

DamageLook::~DamageLook() {
  if (!look_.valid()) return;
  constexpr std::chrono::milliseconds kAMoment(1);
  do {
    interrupt();  // in vain while it has not begun to read
  } while (look_.wait_for(kAMoment) != std::future_status::ready);
}

void DamageLook::begin(const QString& path, const std::function<void()>& tell) {
  if (look_.valid()) return;
  look_ = std::async(std::launch::async, [this, path, tell] {
    if (findsDamage(path)) tell();
  });
}

void DamageLook::finish() {
  if (look_.valid()) look_.wait();
}

// A schedule that another copy keeps busy cannot be looked through now.
bool DamageLook::findsDamage(const QString& path) {
  try {
    open(path);
    return !store_->isSound();
  } catch (const StoreError& error) {
    return error.fault() == StoreFault::Damaged;
  } catch (const WorkGivenUp&) {
    return false;  // the program ends
  }
}

void DamageLook::open(const QString& path) {
  constexpr std::chrono::milliseconds kImpatient(0);
  auto store = std::make_unique<ScheduleStore>(path, kImpatient);
  const std::lock_guard guard(opening_);
  store_ = std::move(store);
}

void DamageLook::interrupt() {
  const std::lock_guard guard(opening_);
  if (store_) store_->interrupt();
}

}  // namespace vellora
