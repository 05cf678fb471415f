#include "store/schedule_check.h"

#include "store/connection.h"
#include "store/schema.h"

#include <sqlite3.h>

namespace vellora {

ScheduleCheck::ScheduleCheck(const QString& path)
    : connection_(std::make_unique<Connection>(path, std::chrono::milliseconds(0))) {}

ScheduleCheck::~ScheduleCheck() = default;

bool ScheduleCheck::isSound() {
  return vellora::isSound(*connection_);
}

void ScheduleCheck::interrupt() {
  sqlite3_interrupt(connection_->handle());
}

}  // namespace vellora
