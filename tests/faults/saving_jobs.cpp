#include "faults/saving_jobs.h"

#include "grid/files/excel_writer.h"
#include "grid/files/html_writer.h"
#include "grid/files/workbook_file.h"
#include "grid/print/print_preview.h"
#include "routine/calendar_text.h"
#include "routine/category.h"
#include "schedule/backup.h"
#include "schedule/calendar_export.h"
#include "schedule/calendar_import.h"
#include "schedule/day_plan.h"
#include "schedule/items.h"
#include "schedule/memos.h"
#include "schedule/plan_moves.h"
#include "schedule/plan_rows.h"
#include "schedule/plan_saving.h"
#include "schedule/time_blocks.h"
#include "store/statements.h"
#include "store/undo_log.h"

#include <QPageLayout>

namespace vellora::test {
namespace {

const QString kActivity = u"活动001"_qs;

// What a job works with.
struct Desk {
  QString pathOf(const QString& name) const { return folder + u'/' + name; }
  void listPlan() {
    setUpPlanRows(sheet);
    listEntries(store, sheet, TimeBlockList(store), kActivity);
  }

  QString folder;
  WorkProgress progress;
  ScheduleStore store{pathOf(u"SY.mdb"_qs)};
  Sheet sheet{};
  Workbook workbook{};
};

template <void (*work)(Desk&)>
void at(const QString& folder, const WorkProgress& progress) {
  Desk desk{folder, progress};
  work(desk);
}

void throwIfRefused(const QString& failure) {
  if (!failure.isEmpty()) throw std::runtime_error(failure.toStdString());
}

void saveBlocks(Desk& desk) {
  setUpTimeBlocks(desk.sheet);
  LoadTimeBlocks(desk.store, desk.sheet);
  for (int row = 0; row < 10; ++row) desk.sheet.SetCellText(3, row, QString(90, u'长'));
  desk.sheet.SetCellText(2, 19, {});
  SaveTimeBlocks(desk.store, desk.sheet);
}

void changeItem(Desk& desk) {
  setUpItemSheet(desk.sheet);
  ItemCatalogue catalogue(desk.store);
  catalogue.filter(allCategoriesLabel(), desk.sheet);
  if (catalogue.find(u"007"_qs)) catalogue.change({u"007"_qs, u"改名"_qs, u"3-运动"_qs, true});
}

// Some entries change, the first goes, two are new.
void savePlan(Desk& desk) {
  desk.listPlan();
  Sheet& sheet = desk.sheet;
  for (int row = 1; row < 6; ++row) sheet.SetCellText(kPlanRequirement, row, QString(99, u'改'));
  sheet.DeleteRows(0, 1);
  const TimeBlockList blocks(desk.store);
  const int spare = sheet.Rows() - kSparePlanRows;
  for (int i = 0; i < 2; ++i) {
    placePlanRow(sheet, spare + i, kMonday.addDays(40 + i), *blocks.at(i), kActivity);
  }
  throwIfRefused(writePlan(desk.store, sheet, kActivity, nullptr, desk.progress).failure);
}

// Half of the day's entries change, one goes, one is new.
void saveDay(Desk& desk) {
  Sheet& sheet = desk.sheet;
  setUpDayRows(sheet);
  layOutBlockRows(sheet, TimeBlockList(desk.store));
  const QList<OpenItem> items = readOpenItems(desk.store);
  const SavedEntries saved(desk.store, kMonday);
  showDayPlan(sheet, kMonday, saved, items);
  for (int row = 0; row < 10; ++row) sheet.SetCellText(kDayRequirement, row, QString(99, u'改'));
  sheet.SetCellText(kDayActivity, 11, {});
  placeDayActivity(sheet, sheet.Rows() - 1, items.constFirst());
  throwIfRefused(writeDayPlan(desk.store, sheet, kMonday, saved, false).failure);
}

// As the board copies it, to be undone.
void copyWeek(Desk& desk) {
  desk.store.undoLog();
  const auto blocks = plannedBlocks(desk.store, kMonday, kMonday.addDays(6));
  carryOut(desk.store, repeatedWeekly(blocks, 2), {}, desk.progress);
}

// Every other line replaces what is there, and a memo and an item are new.
void importCalendar(Desk& desk) {
  QByteArray text("BEGIN:VCALENDAR\nBEGIN:VEVENT\nDTSTART:20070306\nSUMMARY:memo\nEND:VEVENT\n");
  for (int i = 0; i < 12; ++i) {
    text += "BEGIN:VEVENT\nSUMMARY:new\nDTSTART:200703" + QByteArray::number(11 + i) +
            "T000000\nEND:VEVENT\nBEGIN:VEVENT\nSUMMARY:new\nDTSTART:20070305T" +
            QByteArray::number(10 + i) + "0000\nEND:VEVENT\n";
  }
  const CalendarFile file = readCalendar(text + "END:VCALENDAR\n");
  const auto found = occurrencesIn(file, kMonday, kMonday.addDays(30), QTimeZone::utc());
  CalendarImport import = planImport(desk.store, found);
  for (ImportLine& line : import.lines) line.replaces = true;
  desk.store.undoLog();
  saveImport(desk.store, import, true, desk.progress);
}

void exportCalendarFile(Desk& desk) {
  const CalendarSelection all{kMonday, kMonday.addDays(30), {}, true};
  exportCalendar(desk.store, all, desk.pathOf(u"表.ics"_qs), QDateTime(kMonday, {}, Qt::UTC),
                 desk.progress);
}

void exportHtml(Desk& desk) {
  desk.listPlan();
  writeHtmlFile(desk.sheet, {}, u"表"_qs, desk.pathOf(u"表.htm"_qs), desk.progress);
}

void exportExcel(Desk& desk) {
  desk.listPlan();
  writeExcelFile(desk.sheet, {}, u"表"_qs, desk.pathOf(u"表.xls"_qs), desk.progress);
}

void exportPdf(Desk& desk) {
  desk.listPlan();
  // Pages take long, and all are written alike.
  desk.sheet.SetRows(std::min(desk.sheet.Rows(), 200));
  savePdf(desk.sheet, {}, PrintHeadings::HeadingStrip, paperOf({}), u"表"_qs,
          desk.pathOf(u"表.pdf"_qs), desk.progress);
}

void saveTemplate(Desk& desk) {
  desk.listPlan();
  desk.sheet.SetRows(600);
  for (int row = 0; row < 600; ++row) desk.sheet.SetCellTag(0, row, QString::number(row));
  desk.workbook.sheet() = desk.sheet;
  writeWorkbookFile(desk.workbook, desk.pathOf(u"JH.ZRT"_qs),
                    [&desk] { report(desk.progress, {u"……"_qs}); });
}

constexpr SavingJob kJobs[]{
    {"whole_table", at<saveBlocks>},  // like the week names
    {"memo", at<[](Desk& desk) { storeMemo(desk.store, kMonday, QString(9'000, u'新')); }>},
    {"item", at<changeItem>},
    {"activity_plan", at<savePlan>, true, true},
    {"day_plan", at<saveDay>, false, true},
    {"week_copy", at<copyWeek>, true},
    {"calendar_import", at<importCalendar>, true},
    {"calendar_export", at<exportCalendarFile>, true},
    {"indices_of_a_start",
     at<[](Desk& desk) { desk.store.open(statements::itemNamed(kActivity)); }>},
    {"restore", at<[](Desk& desk) {
       RestoreTables(desk.store, desk.workbook, desk.pathOf(u"别的.KTZ"_qs), desk.progress);
     }>,
     true},
    {"backup", at<[](Desk& desk) {
       BackupTables(desk.store, desk.workbook, desk.pathOf(u"旧.KTZ"_qs), desk.folder,
                    desk.progress);
     }>,
     true},
    {"html_export", at<exportHtml>, true},
    {"excel_export", at<exportExcel>, true},
    {"pdf_export", at<exportPdf>, true},
    {"board_template", at<saveTemplate>, true}};

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
  const QDir folder(schedule.folder());
  Workbook workbook;
  ScheduleStore store = other.store();
  BackupTables(store, workbook, folder.filePath(u"别的.KTZ"_qs), folder.path());
  for (const auto& name :
       {u"旧.KTZ"_qs, u"表.htm"_qs, u"表.xls"_qs, u"表.pdf"_qs, u"表.ics"_qs, u"JH.ZRT"_qs}) {
    writeWorkbookFile(workbook, folder.filePath(name));
  }
}

}  // namespace vellora::test
