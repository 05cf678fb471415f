#pragma once

#include "grid/sheet/sheet.h"
#include "planning/plan_saving.h"
#include "routine/changes.h"

namespace vellora {

// What a save of the activity's plan grid would do. `taken` are the rows that the last save left
// out.
Changes planChanges(const Sheet& sheet, const QString& activity, const SavedEntries& saved,
                    const QList<TakenBlock>& taken);

}  // namespace vellora
