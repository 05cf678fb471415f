#include "faults/read_everything.h"

#include "schedule/backup.h"
#include "schedule/week.h"
#include "schedule/memos.h"
#include "schedule/items.h"
#include "schedule/time_blocks.h"
#include "schedule/week_names.h"
#include "schedule/day_plan.h"
#include "schedule/plan_rows.h"
#include "routine/category.h"
#include "schedule/time_use.h"
#include "store/store_error.h"
#include "support/text_output.h"

#include <optional>

namespace vellora::test {
namespace {

const QDate kMonday(2007, 3, 5);

void readBoard(ScheduleStore& store) {
  Sheet board;
  board.SetCols(kBoardCols);
  board.SetRows(1);
  BuildTimeRows(store, board);
  FillWeek(store, board, kMonday);
}

void readLists(ScheduleStore& store) {
  const TimeBlockList blocks(store);
  Sheet sheet;
  setUpPlanRows(sheet);
  listPlan(store, sheet, blocks, u"活动001"_qs);
  setUpDayRows(sheet);
  layOutBlockRows(sheet, blocks);
  showDayPlan(sheet, kMonday, SavedEntries(store, kMonday), readOpenItems(store));
}

void readItems(ScheduleStore& store) {
  Sheet sheet;
  setUpItemSheet(sheet);
  ItemCatalogue(store).filter(allCategoriesLabel(), sheet);
}

void readEditors(ScheduleStore& store) {
  Sheet sheet;
  setUpTimeBlocks(sheet);
  LoadTimeBlocks(store, sheet);
  setUpWeekNames(sheet);
  LoadWeekNames(store, sheet);
  memoOf(store, kMonday);
}

void readTimeUse(ScheduleStore& store) {
  Sheet sheet;
  setUpTimeUse(sheet);
  const QDate last = kMonday.addDays(6);
  const qint64 total = totalMinutes(useByCategory(store, kMonday, last));
  if (total != 0) listActivities(sheet, store, kMonday, last, total);
}

void readTables(ScheduleStore& store) {
  for (const QString& table : backedUpTables()) {
    auto rows = store.readOnce(table);
    while (rows.next()) {
      for (int col = 0; col < rows.columnCount(); ++col) rows.value(col);
    }
  }
}

}  // namespace

void readEverything(ScheduleStore& store) {
  std::optional<StoreError> first;
  for (const auto read : {readBoard, readLists, readItems, readEditors, readTimeUse, readTables}) {
    try {
      read(store);
    } catch (const StoreError& error) {
      if (!first) first = error;
    }
  }
  if (first) throw StoreError(*first);
}

}  // namespace vellora::test
