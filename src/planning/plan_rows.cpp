#include "planning/plan_rows.h"

#include "planning/list_columns.h"
#include "routine/calendar_text.h"
#include "store/moment.h"

namespace vellora {
namespace {

constexpr int kDateLength = 10;  // characters of yyyy-MM-dd
constexpr ListColumn kColumns[kPlanCols]{
    {u"日期", 120}, {u"时间", 120}, {u"内容", 150}, {u"要求", 100}, {u"等级", 50}};

}  // namespace

void setUpPlanRows(Sheet& sheet) {
  sheet.SetCols(kPlanCols);
  sheet.SetRows(kSparePlanRows);
  setUpListColumns(sheet, kColumns);
  // Only the level may be taken for a number.
  for (int col = 0; col < kPlanLevel; ++col) sheet.SetCellOption(col, kEveryRow, 1);
}

QString planDateCell(QDate date) {
  if (!date.isValid()) return {};
  return isoDate(date) + kLineBreak + weekdayName(date);
}

std::optional<QDate> planDate(const Sheet& sheet, int row) {
  const QString cell = sheet.GetCellText(kPlanDate, row).trimmed();
  if (const auto date = readDate(QStringView(cell).left(kDateLength))) return date;
  return readDate(QStringView(cell).left(cell.indexOf(kLineBreak)));
}

QString planDateText(const Sheet& sheet, int row) {
  const QString cell = sheet.GetCellText(kPlanDate, row).trimmed();
  const QString front = cell.left(kDateLength);
  const QString firstLine = cell.section(kLineBreak, 0, 0);
  return !readDate(front) && readDate(firstLine) ? firstLine : front;
}

bool takesPartInSave(const Sheet& sheet, int row, const QString& activity) {
  return !sheet.CellTag(kPlanTime, row).isEmpty() &&
         sheet.GetCellText(kPlanActivity, row) == activity && !planDateText(sheet, row).isEmpty();
}

void placePlanRow(Sheet& sheet, int row, QDate date, const TimeBlock& block,
                  const QString& activity) {
  sheet.SetCellText(kPlanDate, row, planDateCell(date));
  sheet.SetCellTag(kPlanTime, row, block.code);
  sheet.SetCellText(kPlanActivity, row, activity);
  sheet.SetCellTag(kPlanActivity, row, {});
  sheet.SetCellText(kPlanTime, row, block.cell);
}

bool keepSparePlanRow(Sheet& sheet, int row) {
  if (row != sheet.Rows() - 1) return false;
  sheet.SetRows(sheet.Rows() + 1);
  return true;
}

void proposePlanDate(Sheet& sheet, int col, int row, QDate date) {
  if (col == kPlanDate && sheet.GetCellText(col, row).isEmpty()) {
    sheet.SetCellText(col, row, isoDate(date));
  }
}

PlanRowCopy::PlanRowCopy(const Sheet& sheet, int row) {
  for (int col = 0; col < kPlanCols; ++col) {
    cells_[static_cast<std::size_t>(col)] = {sheet.GetCellText(col, row), sheet.CellTag(col, row),
                                             sheet.SettingsAt(col, row)};
  }
}

void PlanRowCopy::writeTo(Sheet& sheet, int row) const {
  for (int col = 0; col < kPlanCols; ++col) {
    const Cell& cell = cells_[static_cast<std::size_t>(col)];
    if (!cell.text.isEmpty()) sheet.SetCellText(col, row, cell.text);
    if (!cell.tag.isEmpty()) sheet.SetCellTag(col, row, cell.tag);
    if (cell.settings != CellSettings()) sheet.SetCellSettings(col, row, cell.settings);
  }
}

void duplicatePlanRow(Sheet& sheet, int row) {
  const PlanRowCopy copy(sheet, row);
  sheet.InsertRows(row + 1, 1);
  copy.writeTo(sheet, row + 1);
}

}  // namespace vellora
