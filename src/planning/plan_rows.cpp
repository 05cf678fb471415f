#include "planning/plan_rows.h"

#include "routine/calendar_text.h"
#include "store/moment.h"

namespace vellora {
namespace {

constexpr int kDateLength = 10;  // characters of yyyy-MM-dd
constexpr int kTwoLineRow = 38;  // pixels

struct ColumnLook {
  const char16_t* heading;
  int width;
};
constexpr ColumnLook kColumns[kPlanCols]{
    {u"日期", 120}, {u"时间", 120}, {u"内容", 150}, {u"要求", 100}, {u"等级", 50}};

}  // namespace

void setUpPlanRows(Sheet& sheet) {
  sheet.SetCols(kPlanCols);
  sheet.SetRows(kSparePlanRows);
  sheet.SetDefaultFont(8, kFontRegular, u"宋体"_qs);
  sheet.SetDefaultRowHeight(kTwoLineRow);
  for (int col = 0; col < kPlanCols; ++col) {
    sheet.SetCellText(col, kHeadingRow, QString::fromUtf16(kColumns[col].heading));
    sheet.SetCellAlign(col, kHeadingRow, kAlignCentred);
    sheet.SetCellAlign(col, kEveryRow, kAlignCentred);
    sheet.SetCellInput(col, kEveryRow, 1);
    sheet.SetCellWrap(col, kEveryRow, true);
    sheet.SetColumnWidth(col, kColumns[col].width);
    // Only the level may be taken for a number.
    if (col != kPlanLevel) sheet.SetCellOption(col, kEveryRow, 1);
  }
}

QString planDateCell(QDate date) {
  if (!date.isValid()) return {};
  return isoDate(date) + kLineBreak + weekdayName(date);
}

QString planDateText(const Sheet& sheet, int row) {
  const QString cell = sheet.GetCellText(kPlanDate, row);
  const QString front = cell.left(kDateLength);
  if (readDate(front)) return front;
  const QString firstLine = cell.section(kLineBreak, 0, 0);
  return readDate(firstLine) ? firstLine : front;
}

std::optional<QDate> planDate(const Sheet& sheet, int row) {
  return readDate(planDateText(sheet, row));
}

void placePlanRow(Sheet& sheet, int row, QDate date, const TimeBlock& block,
                  const QString& activity) {
  sheet.SetCellText(kPlanDate, row, planDateCell(date));
  sheet.SetCellTag(kPlanTime, row, block.code);
  sheet.SetCellText(kPlanActivity, row, activity);
  sheet.SetCellText(kPlanTime, row, blockCell(block));
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

void copyPlanRow(Sheet& sheet, int from, int to) {
  for (int col = 0; col < kPlanCols; ++col) {
    sheet.SetCellText(col, to, sheet.GetCellText(col, from));
    sheet.SetCellTag(col, to, sheet.CellTag(col, from));
    if (sheet.SettingsNumberAt(col, from) != sheet.SettingsNumberAt(col, to)) {
      sheet.SetCellSettings(col, to, sheet.SettingsAt(col, from));
    }
  }
}

void duplicatePlanRow(Sheet& sheet, int row) {
  sheet.InsertRows(row + 1, 1);
  copyPlanRow(sheet, row, row + 1);
}

}  // namespace vellora
