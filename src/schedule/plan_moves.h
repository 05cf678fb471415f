#pragma once

#include "routine/work_step.h"
#include "schedule/plan_entries.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QString>

#include <optional>
#include <set>
#include <vector>

// What is done to planned blocks on the board: moved, copied, cancelled, one or a term of them.
namespace vellora {

using PlanPlace = SavedEntries::Place;

// All entries of a block on a date; the board shows the first.
struct PlannedBlock {
  PlanPlace place;
  std::vector<PlanTexts> entries;
};

// One block's part of an action.
struct PlanMove {
  std::optional<PlanPlace> from;   // is emptied; none for a copy
  std::optional<PlanPlace> to;     // is filled; none for a cancellation
  std::vector<PlanTexts> entries;  // what goes there
};
using PlanMoves = std::vector<PlanMove>;

// A place that something else holds already; several activities with 、 between them.
struct PlanConflict {
  PlanPlace place;
  QString holder;
  QString newcomer;
};

// Read one view of the schedule; throw StoreError. The date range includes both ends.
std::optional<PlannedBlock> plannedBlock(ScheduleStore& store, const PlanPlace& place);
std::vector<PlannedBlock> plannedBlocks(ScheduleStore& store, QDate first, QDate last);

PlanMoves cancelled(const std::vector<PlannedBlock>& blocks);
// The blocks some days later (earlier when negative); `keepsOriginals` copies.
PlanMoves shifted(const std::vector<PlannedBlock>& blocks, qint64 days, bool keepsOriginals);
// The blocks in each of the following `weeks` weeks as well. Places beyond the calendar are left
// out.
PlanMoves repeatedWeekly(const std::vector<PlannedBlock>& blocks, int weeks);
// The block and every later one on the same weekday that begins with the same activity.
std::vector<PlannedBlock> sameFromHereOn(ScheduleStore& store, const PlannedBlock& block);

// The places where a move would meet other entries that stay, in the order of the moves.
std::vector<PlanConflict> conflictsOf(ScheduleStore& store, const PlanMoves& moves);

// Does all of it in one transaction. What other entries hold is replaced but for the places in
// `kept`, to which nothing moves; what would have moved there stays where it is. Returns how many
// moves were done. Throws StoreFault::RowChanged when a place does not hold any more what is to be
// moved from it, other StoreErrors, and WorkCancelled when `progress` gives up, with nothing
// changed.
int carryOut(ScheduleStore& store, const PlanMoves& moves, const std::set<PlanPlace>& kept = {},
             const WorkProgress& progress = {});

}  // namespace vellora
