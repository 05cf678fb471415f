#include "faults/saving_jobs.h"

#include "faults/child.h"
#include "grid/files/excel_writer.h"
#include "grid/files/workbook_file.h"
#include "routine/calendar_text.h"
#include "routine/category.h"
#include "schedule/backup.h"
#include "schedule/day_plan.h"
#include "schedule/items.h"
#include "schedule/memos.h"
#include "schedule/plan_rows.h"
#include "schedule/plan_saving.h"
#include "schedule/time_blocks.h"
#include "schedule/week_names.h"
#include "store/statements.h"

namespace vellora::test {
namespace {

const QString kActivity = u"活动001"_qs;

QString pathIn(const QString& folder, const char16_t* name) {
  return folder + u'/' + QString::fromUtf16(name);
}

ScheduleStore storeIn(const QString& folder) {
  return ScheduleStore(pathIn(folder, u"SY.mdb"));
}

void throwIfRefused(const QString& failure) {
  if (!failure.isEmpty()) throw Refusal(failure.toStdString());
}

void saveBlocks(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  Sheet sheet;
  setUpTimeBlocks(sheet);
  LoadTimeBlocks(store, sheet);
  for (int row = 0; row < 10; ++row) sheet.SetCellText(3, row, u"改名"_qs + QString(90, u'长'));
  sheet.SetCellText(2, 19, {});
  SaveTimeBlocks(store, sheet);
}

void saveWeekNames(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  Sheet sheet;
  setUpWeekNames(sheet);
  LoadWeekNames(store, sheet);
  addFollowingWeeks(sheet, sheet.Rows() - 2);
  for (int row = 0; row < sheet.Rows() - 1; ++row) {
    sheet.SetCellText(kWeekNameCol, row, u"周"_qs + QString::number(row));
  }
  SaveWeekNames(store, sheet);
}

void saveMemo(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  storeMemo(store, kMonday, QString(9'000, u'新'));
}

void changeItem(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  Sheet sheet;
  setUpItemSheet(sheet);
  ItemCatalogue catalogue(store);
  catalogue.filter(allCategoriesLabel(), sheet);
  if (catalogue.find(u"007"_qs)) catalogue.change({u"007"_qs, u"改名"_qs, u"3-运动"_qs, true});
}

// Some entries change, the first goes, two are new.
void writePlan(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  const TimeBlockList blocks(store);
  Sheet sheet;
  setUpPlanRows(sheet);
  listEntries(store, sheet, blocks, kActivity);
  for (int row = 1; row < 6; ++row) sheet.SetCellText(kPlanRequirement, row, QString(99, u'改'));
  sheet.DeleteRows(0, 1);
  const int spare = sheet.Rows() - kSparePlanRows;
  for (int i = 0; i < 2; ++i) {
    placePlanRow(sheet, spare + i, kMonday.addDays(40 + i), *blocks.at(i), kActivity);
  }
  throwIfRefused(vellora::writePlan(store, sheet, kActivity, nullptr).failure);
}

// Half of the day's entries change, one goes, one is new.
void saveDay(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  Sheet sheet;
  setUpDayRows(sheet);
  layOutBlockRows(sheet, TimeBlockList(store));
  const QList<OpenItem> items = readOpenItems(store);
  const SavedEntries saved(store, kMonday);
  showDayPlan(sheet, kMonday, saved, items);
  for (int row = 0; row < 10; ++row) sheet.SetCellText(kDayRequirement, row, QString(99, u'改'));
  sheet.SetCellText(kDayActivity, 11, {});
  placeDayActivity(sheet, sheet.Rows() - 1, items.constFirst());
  throwIfRefused(writeDayPlan(store, sheet, kMonday, saved, false).failure);
}

void addIndices(const QString& folder) {
  storeIn(folder).open(statements::itemNamed(kActivity));
}

void restore(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  Workbook workbook;
  RestoreTables(store, workbook, pathIn(folder, u"别的.KTZ"));
}

void replaceBackup(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  Workbook workbook;
  BackupTables(store, workbook, pathIn(folder, u"旧.KTZ"), folder);
}

Sheet listed(const QString& folder) {
  ScheduleStore store = storeIn(folder);
  Sheet sheet;
  setUpPlanRows(sheet);
  listEntries(store, sheet, TimeBlockList(store), kActivity);
  return sheet;
}

void exportExcel(const QString& folder) {
  writeExcelFile(listed(folder), {}, u"表"_qs, pathIn(folder, u"表.xls"));
}

void saveTemplate(const QString& folder) {
  Workbook workbook;
  workbook.sheet() = listed(folder);
  writeWorkbookFile(workbook, pathIn(folder, u"JH.ZRT"));
}

constexpr SavingJob kJobs[]{{"time_blocks", saveBlocks},
                            {"week_names", saveWeekNames},
                            {"memo", saveMemo},
                            {"item", changeItem},
                            {"activity_plan", writePlan, true},
                            {"day_plan", saveDay, true},
                            {"start_that_adds_indices", addIndices},
                            {"restore", restore},
                            {"backup", replaceBackup},
                            {"excel_export", exportExcel},
                            {"board_template", saveTemplate}};

}  // namespace

std::span<const SavingJob> savingJobs() {
  return kJobs;
}

void fillSchedule(ScheduleBuilder& schedule) {
  schedule.fullDay(20).items(30).fullPlan(kMonday, 3, 19, 30).sql(u"DROP INDEX HD_HDMC"_qs);
  schedule.memo(kMonday, u"旧的备忘"_qs).memo(kMonday.addDays(1), QString(3'000, u'旧'));
  for (int i = 0; i < 5; ++i) {
    schedule.weekName(kMonday.addDays(7 * i), kMonday.addDays(7 * i + 6), u"旧名"_qs);
  }
  ScheduleBuilder other;
  other.fullDay(9).items(5).fullPlan(kMonday.addDays(2), 8, 8, 5).memo(kMonday, u"别的"_qs);
  Workbook workbook;
  ScheduleStore store = other.store();
  BackupTables(store, workbook, pathIn(schedule.folder(), u"别的.KTZ"), schedule.folder());
  for (const char16_t* name : {u"旧.KTZ", u"表.xls", u"JH.ZRT"}) {
    writeWorkbookFile(workbook, pathIn(schedule.folder(), name));
  }
}

}  // namespace vellora::test
