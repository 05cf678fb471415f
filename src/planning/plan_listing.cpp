#include "planning/plan_listing.h"

#include "planning/plan_rows.h"
#include "store/statements.h"

namespace vellora {
namespace {

// Returns whether the entry's block was found.
bool writeRow(Sheet& sheet, int row, RowCursor& entry, const TimeBlockList& blocks,
              const QString& activity) {
  const QString code = entry.text(u"SJKH");
  const TimeBlock* block = blocks.find(code);
  sheet.SetCellText(kPlanDate, row, planDateCell(entry.date(u"RQ")));
  sheet.SetCellTag(kPlanTime, row, code);
  if (block) sheet.SetCellText(kPlanTime, row, block->cell);
  sheet.SetCellText(kPlanActivity, row, activity);
  sheet.SetCellText(kPlanRequirement, row, entry.text(u"HDYQ"));
  sheet.SetCellText(kPlanLevel, row, entry.text(u"ZYDJ"));
  return block != nullptr;
}

}  // namespace

QStringList listPlan(ScheduleStore& store, Sheet& sheet, const TimeBlockList& blocks,
                     const QString& activity) {
  auto entries = store.readOnce(statements::plansOfActivity(activity));
  Sheet listed = sheet;
  listed.SetRows(0);
  listed.SetRows(kMaxRows);  // until they are counted
  QStringList missing;
  int count = 0;
  while (entries.next()) {
    if (!writeRow(listed, count++, entries, blocks, activity)) missing << entries.text(u"SJKH");
  }
  listed.SetRows(count + kSparePlanRows);
  sheet = listed;
  return missing;
}

}  // namespace vellora
