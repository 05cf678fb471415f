#pragma once

#include "store/schedule_store.h"

#include <QDate>
#include <QString>

namespace vellora {

// Everything planned on a date as plain text: the date and its weekday, an empty line, then for
// each entry a line with its block's hours and name (the bare code when there is no such block) and
// a line with the activity, indented. Lines end in CR LF. Throws StoreError.
QString daySummary(ScheduleStore& store, QDate date);

}  // namespace vellora
