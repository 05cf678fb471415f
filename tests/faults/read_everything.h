#pragma once

#include "store/schedule_store.h"

namespace vellora::test {

// Reads what a started program shows: the board, the lists, the statistics, all that a backup
// holds. Throws the first StoreError after having tried everything.
void readEverything(ScheduleStore& store);

}  // namespace vellora::test
