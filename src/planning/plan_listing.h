#pragma once

#include "grid/sheet/sheet.h"
#include "planning/time_block_list.h"
#include "store/schedule_store.h"

#include <QStringList>

namespace vellora {

// Replaces the plan grid's rows with every saved entry of the activity, by date and block code, and
// spare rows below; an entry whose date or block cannot be read is left out. Returns the code of
// each entry whose block is not among `blocks`; such an entry is listed without a time. Throws
// StoreError and leaves the grid as it was.
QStringList listPlan(ScheduleStore& store, Sheet& sheet, const TimeBlockList& blocks,
                     const QString& activity);

}  // namespace vellora
