#include "planning/plan_listing.h"

#include "planning/plan_rows.h"
#include "store/statements.h"

namespace vellora {
namespace {

// Entries come by date, so one text serves all of a day.
class DateCells {
 public:
  const QString& of(QDate date) {
    if (date != date_) cell_ = planDateCell(date_ = date);
    return cell_;
  }

 private:
  QDate date_;
  QString cell_;
};

// Returns whether the entry's block was found.
bool writeRow(Sheet& sheet, int row, RowCursor& entry, const TimeBlockList& blocks,
              const QString& activity, DateCells& dates) {
  const QString code = entry.text(u"SJKH");
  const TimeBlock* block = blocks.find(code);
  sheet.SetCellText(kPlanDate, row, dates.of(entry.date(u"RQ")));
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
  DateCells dates;
  int count = 0;
  while (entries.next()) {
    const bool isWhole = writeRow(listed, count++, entries, blocks, activity, dates);
    if (!isWhole) missing << entries.text(u"SJKH");
  }
  listed.SetRows(count + kSparePlanRows);
  sheet = listed;
  return missing;
}

}  // namespace vellora
