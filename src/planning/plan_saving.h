#pragma once

#include "grid/sheet/sheet.h"
#include "routine/work_step.h"
#include "store/schedule_store.h"

#include <QList>
#include <QString>

namespace vellora {

// Whether a row of the plan grid takes part in the save of an activity's plan: it has a block, it
// names exactly that activity, and its date cell is not empty.
bool takesPartInSave(const Sheet& sheet, int row, const QString& activity);

// A row that was left out because another activity holds its block on its date.
struct TakenBlock {
  QString date;
  QString holder;
};

struct PlanSaveOutcome {
  QList<TakenBlock> taken;  // in row order, up to the failure
  QString failure;          // what went wrong, and in which row; empty when all was saved
};

// Makes the saved plan of the activity what the grid's rows say. Of two rows for one block and date
// the later wins; what no row says any more is deleted.
//
// Everything is one transaction, and entries are changed in place and deleted last. So a row that
// cannot be saved ends the save with the rows before it saved and every other old entry still
// there, and a save that is killed, given up (WorkGivenUp) or cannot be committed leaves all as it
// was.
PlanSaveOutcome savePlan(ScheduleStore& store, const Sheet& sheet, const QString& activity,
                         const WorkProgress& progress = {});

}  // namespace vellora
