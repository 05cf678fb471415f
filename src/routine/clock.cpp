#include "routine/clock.h"

namespace vellora {

QDate SystemClock::today() const {
  return QDate::currentDate();
}

}  // namespace vellora
