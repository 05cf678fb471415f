#pragma once

#include "store/schedule_store.h"

#include <QString>

namespace vellora {

// The stored path as it stands, or the default skin beside the executable.
QString readSkinPath(ScheduleStore& store, const QString& programDir);

// Keeps the full path of the chosen skin for the next start, in the setting's only row. Throws
// StoreError and keeps the setting as it was, for example when the path is too long for it.
void storeSkinPath(ScheduleStore& store, const QString& path);

}  // namespace vellora
