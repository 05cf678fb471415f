#include "schedule/day_plan.h"

#include "routine/calendar_text.h"
#include "schedule/list_columns.h"
#include "schedule/plan_entries.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <vector>

namespace vellora {
namespace {

constexpr int kRowsAtFirst = 50;  // until the blocks are laid out

constexpr ListColumn kDayColumns[kDayCols]{
    {u"时间", 140}, {u"内容", 150}, {u"要求", 150}, {u"等级", 80}};

PlanTexts dayTexts(const Sheet& sheet, int row) {
  return {sheet.GetCellText(kDayActivity, row), sheet.GetCellText(kDayRequirement, row),
          sheet.GetCellText(kDayLevel, row)};
}

void showTexts(Sheet& sheet, int row, const PlanTexts& texts) {
  sheet.SetCellText(kDayActivity, row, texts.activity);
  sheet.SetCellText(kDayRequirement, row, texts.requirement);
  sheet.SetCellText(kDayLevel, row, texts.level);
}

void colourRow(Sheet& sheet, int row, PackedColour colour) {
  for (const int col : {kDayActivity, kDayRequirement, kDayLevel}) {
    sheet.SetCellColors(col, row, colour, kWhite);
  }
}

void showEntry(Sheet& sheet, int row, QDate date, const SavedEntries& saved,
               const QList<OpenItem>& items) {
  const PlanTexts* entry = saved.find(date, sheet.CellTag(kDayBlock, row));
  showTexts(sheet, row, entry ? *entry : PlanTexts());
  const auto colour = entry ? colourOf(items, entry->activity) : std::nullopt;
  if (colour && !entry->activity.isEmpty()) colourRow(sheet, row, *colour);
}

// Whether a save would store other than what was read.
bool isChanged(const Sheet& sheet, int row, QDate date, const SavedEntries& saved) {
  const PlanTexts texts = dayTexts(sheet, row);
  const PlanTexts* entry = saved.find(date, sheet.CellTag(kDayBlock, row));
  if (entry) return !areStoredAlike(*entry, texts);
  return !areStoredAlike(texts, {}) || !texts.level.isEmpty();
}

void saveRow(ScheduleStore& store, Recordset& all, const Sheet& sheet, int row, QDate date) {
  const QString code = sheet.CellTag(kDayBlock, row);
  const PlanTexts texts = dayTexts(sheet, row);
  if (texts.activity.isEmpty()) {
    store.execute(statements::deletePlanOfBlock(date, code));
    return;
  }
  auto entry = store.open(statements::planOfBlock(date, code));
  if (entry.isEmpty()) {
    addPlan(all, date, code, texts);
  } else {
    editPlan(entry, texts);
  }
}

QString inBlock(const Sheet& sheet, int row, const StoreError& error) {
  const QString block = sheet.GetCellText(kDayBlock, row).replace(kLineBreak, u' ');
  return u"%1：%2"_qs.arg(block, error.description());
}

void requireAsRead(ScheduleStore& store, const Sheet& sheet, int row, QDate date,
                   const SavedEntries& asRead) {
  const QString code = sheet.CellTag(kDayBlock, row);
  const auto now = entryOfBlock(store, date, code);
  const PlanTexts* before = asRead.find(date, code);
  if (now.has_value() == (before != nullptr) && (!now || *now == *before)) return;
  throw StoreError(StoreFault::RowChanged, u"另一个程序已经改动了这一天的计划。"_qs);
}

// Returns what stopped it.
QString saveRows(ScheduleStore& store, const Sheet& sheet, QDate date,
                 const std::vector<int>& rows) {
  auto all = store.open(statements::allPlans());  // never read: only added to
  for (const int row : rows) {
    try {
      saveRow(store, all, sheet, row, date);
    } catch (const StoreError& error) {
      return inBlock(sheet, row, error);
    }
  }
  return {};
}

constexpr QStringView kLineEnd = u"\r\n";

QString blockText(ScheduleStore& store, const QString& code) {
  auto block = store.open(statements::blockWithCode(code));
  if (block.isEmpty()) return code;
  return blockHours(block.time(u"SJ0"), block.time(u"SJ1")) + u' ' + block.text(u"sjkm");
}

}  // namespace

void setUpDayRows(Sheet& sheet) {
  setUpPlanList(sheet, kDayColumns);
  sheet.SetRows(kRowsAtFirst);
  sheet.SetCellOption(kDayActivity, kEveryRow, 1);
  sheet.SetCellOption(kDayRequirement, kEveryRow, 1);
}

void layOutBlockRows(Sheet& sheet, const TimeBlockList& blocks) {
  sheet.SetRows(0);
  sheet.SetRows(static_cast<int>(blocks.size()));
  int row = 0;
  for (const TimeBlock& block : blocks) {
    sheet.SetCellText(kDayBlock, row, block.cell);
    sheet.SetCellTag(kDayBlock, row++, block.code);
  }
}

void showDayPlan(Sheet& sheet, QDate date, const SavedEntries& saved,
                 const QList<OpenItem>& items) {
  for (int row = 0; row < sheet.Rows(); ++row) showEntry(sheet, row, date, saved, items);
}

bool refreshDayPlan(Sheet& sheet, QDate date, const SavedEntries& before, const SavedEntries& now,
                    const QList<OpenItem>& items) {
  const quint64 revision = sheet.revision();
  for (int row = 0; row < sheet.Rows(); ++row) {
    if (isChanged(sheet, row, date, before) || !isChanged(sheet, row, date, now)) continue;
    showEntry(sheet, row, date, now, items);
  }
  return sheet.revision() != revision;
}

Changes dayChanges(const Sheet& sheet, QDate date, const SavedEntries& saved) {
  Changes changes;
  for (int row = 0; row < sheet.Rows(); ++row) {
    if (!isChanged(sheet, row, date, saved)) continue;
    const PlanTexts texts = dayTexts(sheet, row);
    const bool lacksActivity = texts.activity.isEmpty() && texts != PlanTexts();
    changes.rows.push_back({row, lacksActivity ? u"没有内容"_qs : QString()});
  }
  return changes;
}

void placeDayActivity(Sheet& sheet, int row, const OpenItem& item) {
  sheet.SetCellText(kDayActivity, row, item.name);
  colourRow(sheet, row, item.colour);
}

DaySaveOutcome writeDayPlan(ScheduleStore& store, const Sheet& sheet, QDate date,
                            const SavedEntries& asRead, bool overwrite) {
  std::vector<int> rows;
  for (int row = 0; row < sheet.Rows(); ++row) {
    if (isChanged(sheet, row, date, asRead)) rows.push_back(row);
  }
  DaySaveOutcome outcome;
  try {
    ScheduleStore::Transaction transaction(store);
    for (const int row : rows) {
      if (!overwrite) requireAsRead(store, sheet, row, date, asRead);
    }
    outcome.failure = saveRows(store, sheet, date, rows);
    const SavedEntries now(store, date);
    transaction.commit();
    outcome.saved = now;
  } catch (const StoreError& error) {
    if (error.fault() == StoreFault::RowChanged) throw;
    if (error.fault() == StoreFault::SavedDespiteError) throw;
    outcome.failure = nothingSaved(outcome.failure, error);
  }
  return outcome;
}

QString dayPlanCaption(QDate date) {
  return u"每日活动计划  "_qs + longDate(date) + u' ' + weekdayName(date);
}

QString daySummary(ScheduleStore& store, QDate date) {
  const ScheduleStore::ReadTransaction oneView(store);
  QString text = isoDate(date) + u' ' + weekdayName(date) + kLineEnd + kLineEnd;
  auto entries = store.open(statements::plansOn(date));
  for (; !entries.atEnd(); entries.moveNext()) {
    text += blockText(store, entries.text(u"SJKH")) + kLineEnd;
    text += u"  " + entries.text(u"HDMC") + kLineEnd;
  }
  return text;
}

}  // namespace vellora
