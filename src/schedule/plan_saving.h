#pragma once

#include "grid/sheet/sheet.h"
#include "routine/changes.h"
#include "routine/work_step.h"
#include "schedule/plan_entries.h"
#include "store/schedule_store.h"

#include <QList>
#include <QString>

#include <optional>

namespace vellora {

// A row that was left out because another activity holds its block on its date.
struct TakenBlock {
  QString date;  // as it is typed
  QString holder;
  SavedEntries::Place place;
};

struct PlanSaveOutcome {
  QList<TakenBlock> taken;            // in row order, up to the failure
  QString failure;                    // what went wrong, and in which row; empty when all was saved
  std::optional<SavedEntries> saved;  // what the plan is now; none when nothing was saved
};

// Makes the saved plan of the activity what the grid's rows say. Of two rows for one block and date
// the later wins; what no row says any more is deleted, but for entries that no list can show.
//
// Everything is one transaction, and entries are changed in place and deleted last. So a row that
// cannot be saved ends the save with the rows before it saved and every other old entry still
// there, and a save that is killed, given up (WorkCancelled) or cannot be committed leaves all as
// it was. Throws StoreFault::RowChanged, with nothing saved, when the saved plan is not `asRead`
// any more, unless that is null.
PlanSaveOutcome writePlan(ScheduleStore& store, const Sheet& sheet, const QString& activity,
                          const SavedEntries* asRead, const WorkProgress& progress = {});

// What a save of the activity's plan grid would do. `taken` are the rows that the last save left
// out.
Changes planChanges(const Sheet& sheet, const QString& activity, const SavedEntries& saved,
                    const QList<TakenBlock>& taken);

}  // namespace vellora
