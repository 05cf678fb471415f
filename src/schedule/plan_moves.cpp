#include "schedule/plan_moves.h"

#include "routine/calendar_text.h"
#include "routine/text.h"
#include "store/statements.h"

#include <QStringList>

#include <algorithm>
#include <map>

namespace vellora {
namespace {

PlanPlace later(const PlanPlace& place, qint64 days) {
  return {place.first.addDays(days), place.second};
}

// Entries that cannot be read have no place and stay where they are.
std::vector<PlannedBlock> readBlocks(RowCursor rows) {
  std::map<PlanPlace, std::vector<PlanTexts>> blocks;
  while (rows.next()) {
    if (!isReadable(rows)) continue;
    const PlanPlace place(rows.date(u"RQ"), rows.text(u"SJKH"));
    blocks[place].push_back(readPlanTexts(rows));
  }
  std::vector<PlannedBlock> all;
  all.reserve(blocks.size());
  for (auto& [place, entries] : blocks) all.push_back({place, std::move(entries)});
  return all;
}

bool isAlike(const std::vector<PlanTexts>& one, const std::vector<PlanTexts>& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), areStoredAlike);
}

QString activitiesOf(const std::vector<PlanTexts>& entries) {
  QStringList names;
  for (const PlanTexts& entry : entries) names << entry.activity;
  return names.join(u'、');
}

// What stays cannot be moved to, and what would have moved there stays as well.
std::set<PlanPlace> placesThatStay(const PlanMoves& moves, const std::set<PlanPlace>& kept) {
  std::set<PlanPlace> stay = kept;
  for (bool isSettled = false; !isSettled;) {
    isSettled = true;
    for (const PlanMove& move : moves) {
      if (move.to && move.from && stay.contains(*move.to) && stay.insert(*move.from).second) {
        isSettled = false;
      }
    }
  }
  return stay;
}

// What another program has changed meanwhile is not carried along unseen.
void requireAsMoved(ScheduleStore& store, const PlanMove& move) {
  if (!move.from || !move.to || move.from == move.to) return;
  const auto block = plannedBlock(store, *move.from);
  if (block && isAlike(block->entries, move.entries)) return;
  throw StoreError(StoreFault::RowChanged,
                   u"%1 的%2后来又有改动，没有移动。请按 F5 刷新后再试。"_qs.arg(
                       isoDate(move.from->first), quoted(activitiesOf(move.entries))));
}

}  // namespace

std::optional<PlannedBlock> plannedBlock(ScheduleStore& store, const PlanPlace& place) {
  auto blocks = readBlocks(store.readOnce(statements::planOfBlock(place.first, place.second)));
  return blocks.empty() ? std::nullopt : std::optional(std::move(blocks.front()));
}

std::vector<PlannedBlock> plannedBlocks(ScheduleStore& store, QDate first, QDate last) {
  return readBlocks(store.readOnce(statements::plansBetween(first, last)));
}

PlanMoves cancelled(const std::vector<PlannedBlock>& blocks) {
  PlanMoves moves;
  for (const PlannedBlock& block : blocks) moves.push_back({block.place, {}, {}});
  return moves;
}

PlanMoves shifted(const std::vector<PlannedBlock>& blocks, qint64 days, bool keepsOriginals) {
  PlanMoves moves;
  for (const PlannedBlock& block : blocks) {
    const PlanPlace to = later(block.place, days);
    if (days == 0 || to.first > kLastDay || to.first < kFirstDay) continue;
    moves.push_back(
        {keepsOriginals ? std::nullopt : std::optional(block.place), to, block.entries});
  }
  return moves;
}

PlanMoves repeatedWeekly(const std::vector<PlannedBlock>& blocks, int weeks) {
  PlanMoves moves;
  for (int week = 1; week <= weeks; ++week) {
    const PlanMoves one = shifted(blocks, qint64{week} * kDaysInAWeek, true);
    moves.insert(moves.end(), one.begin(), one.end());
  }
  return moves;
}

std::vector<PlannedBlock> sameFromHereOn(ScheduleStore& store, const PlannedBlock& block) {
  const ScheduleStore::ReadTransaction oneView(store);
  const auto& [first, code] = block.place;
  const QString& activity = block.entries.front().activity;
  std::vector<PlannedBlock> same;
  for (const PlannedBlock& each :
       readBlocks(store.readOnce(statements::plansOfActivity(activity)))) {
    const auto& [date, blockCode] = each.place;
    if (date < first || date.dayOfWeek() != first.dayOfWeek() || blockCode != code) continue;
    auto whole = plannedBlock(store, each.place);
    if (whole->entries.front().activity == activity) same.push_back(*std::move(whole));
  }
  return same;
}

std::vector<PlanConflict> conflictsOf(ScheduleStore& store, const PlanMoves& moves) {
  const ScheduleStore::ReadTransaction oneView(store);
  std::set<PlanPlace> emptied;
  for (const PlanMove& move : moves) {
    if (move.from) emptied.insert(*move.from);
  }
  std::vector<PlanConflict> conflicts;
  for (const PlanMove& move : moves) {
    if (!move.to || emptied.contains(*move.to)) continue;
    const auto holder = plannedBlock(store, *move.to);
    if (!holder || isAlike(holder->entries, move.entries)) continue;
    conflicts.push_back({*move.to, activitiesOf(holder->entries), activitiesOf(move.entries)});
  }
  return conflicts;
}

int carryOut(ScheduleStore& store, const PlanMoves& moves, const std::set<PlanPlace>& kept,
             const WorkProgress& progress) {
  const std::set<PlanPlace> stay = placesThatStay(moves, kept);
  const auto isDone = [&](const PlanMove& move) {
    return !(move.to && stay.contains(*move.to)) && !(move.from && stay.contains(*move.from));
  };
  ScheduleStore::Transaction save(store);
  WorkStep step{u"正在保存……"_qs, 0, 2 * static_cast<qint64>(moves.size())};
  for (const PlanMove& move : moves) {
    report(progress, step);
    ++step.done;
    if (isDone(move)) requireAsMoved(store, move);
  }
  for (const PlanMove& move : moves) {
    if (!isDone(move)) continue;
    for (const auto& place : {move.from, move.to}) {
      if (place) store.execute(statements::deletePlanOfBlock(place->first, place->second));
    }
  }
  int count = 0;
  Recordset plans = store.open(statements::plansOn(kFirstDay));  // to add to
  for (const PlanMove& move : moves) {
    report(progress, step);
    ++step.done;
    if (!isDone(move)) continue;
    ++count;
    for (const PlanTexts& texts : move.entries) {
      if (move.to) addPlan(plans, move.to->first, move.to->second, texts);
    }
  }
  save.commit();
  return count;
}

}  // namespace vellora
