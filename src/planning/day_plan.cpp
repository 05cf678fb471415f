#include "planning/day_plan.h"

#include "planning/list_columns.h"
#include "planning/plan_entry.h"
#include "routine/calendar_text.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <vector>

namespace vellora {
namespace {

constexpr int kRowsAtFirst = 50;  // until the blocks are laid out

constexpr ListColumn kColumns[kDayCols]{
    {u"时间", 140}, {u"内容", 150}, {u"要求", 150}, {u"等级", 80}};

PlanTexts textsInRow(const Sheet& sheet, int row) {
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

// The entry of each row; empty texts where there is none.
std::vector<PlanTexts> entriesOfRows(ScheduleStore& store, const Sheet& sheet, QDate date) {
  const ScheduleStore::ReadTransaction oneView(store);
  std::vector<PlanTexts> entries;
  for (int row = 0; row < sheet.Rows(); ++row) {
    const auto entry = entryOfBlock(store, date, sheet.CellTag(kDayBlock, row));
    entries.push_back(entry.value_or(PlanTexts()));
  }
  return entries;
}

void saveRow(ScheduleStore& store, Recordset& all, const Sheet& sheet, int row, QDate date) {
  const QString code = sheet.CellTag(kDayBlock, row);
  const PlanTexts texts = textsInRow(sheet, row);
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

// Returns what stopped it.
QString saveRows(ScheduleStore& store, const Sheet& sheet, QDate date) {
  auto all = store.open(statements::allPlans());  // never read: only added to
  int row = 0;
  try {
    for (; row < sheet.Rows(); ++row) saveRow(store, all, sheet, row, date);
  } catch (const StoreError& error) {
    return inBlock(sheet, row, error);
  }
  return {};
}

}  // namespace

void setUpDayRows(Sheet& sheet) {
  sheet.SetCols(kDayCols);
  sheet.SetRows(kRowsAtFirst);
  setUpListColumns(sheet, kColumns);
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

void loadDayPlan(ScheduleStore& store, Sheet& sheet, QDate date, const QList<OpenItem>& items) {
  int row = 0;
  for (const PlanTexts& texts : entriesOfRows(store, sheet, date)) {
    showTexts(sheet, row, texts);
    if (const auto colour = colourOf(items, texts.activity); colour && !texts.activity.isEmpty()) {
      colourRow(sheet, row, *colour);
    }
    ++row;
  }
}

void placeDayActivity(Sheet& sheet, int row, const OpenItem& item) {
  sheet.SetCellText(kDayActivity, row, item.name);
  colourRow(sheet, row, item.colour);
}

QString saveDayPlan(ScheduleStore& store, const Sheet& sheet, QDate date) {
  QString failure;
  try {
    ScheduleStore::Transaction transaction(store);
    failure = saveRows(store, sheet, date);
    transaction.commit();
  } catch (const StoreError& error) {
    failure = nothingSaved(failure, error);
  }
  return failure;
}

QString dayPlanCaption(QDate date) {
  return u"每日活动计划  "_qs + longDate(date) + u' ' + weekdayName(date);
}

}  // namespace vellora
