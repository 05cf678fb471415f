#include "schedule/plan_rows.h"

#include "routine/calendar_text.h"
#include "routine/text.h"
#include "schedule/list_columns.h"
#include "schedule/plan_entries.h"
#include "store/moment.h"
#include "store/statements.h"

#include <array>
#include <map>

namespace vellora {
namespace {

constexpr int kDateLength = 10;  // characters of yyyy-MM-dd
constexpr ListColumn kPlanColumns[kPlanCols]{
    {u"日期", 120}, {u"时间", 120}, {u"内容", 150}, {u"要求", 100}, {u"等级", 50}};

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

// Writes entries into the rows of a list, one after the other.
class EntryRows {
 public:
  EntryRows(Sheet& sheet, RowCursor& entries, const TimeBlockList& blocks, const QString& activity)
      : sheet_(sheet),
        entries_(entries),
        blocks_(blocks),
        block_(entries.columnNamed(u"SJKH")),
        date_(entries.columnNamed(u"RQ")),
        requirement_(entries.columnNamed(u"HDYQ")),
        level_(entries.columnNamed(u"ZYDJ")) {
    texts_[kPlanActivity] = activity;
  }

  // Returns whether the current entry's block was found.
  bool write(int row);

 private:
  Sheet& sheet_;
  RowCursor& entries_;
  const TimeBlockList& blocks_;
  const int block_, date_, requirement_, level_;  // columns
  DateCells dates_;
  std::array<QString, kPlanCols> texts_;
};

bool EntryRows::write(int row) {
  const QString code = entries_.text(block_);
  const TimeBlock* block = blocks_.find(code);
  texts_[kPlanDate] = dates_.of(entries_.date(date_));
  texts_[kPlanTime] = block ? block->cell : QString();
  texts_[kPlanRequirement] = entries_.text(requirement_);
  texts_[kPlanLevel] = entries_.text(level_);
  sheet_.SetRowTexts(row, texts_);
  sheet_.SetCellTag(kPlanTime, row, code);
  return block != nullptr;
}

}  // namespace

void setUpPlanRows(Sheet& sheet) {
  setUpPlanList(sheet, kPlanColumns);
  sheet.SetRows(kSparePlanRows);
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

QStringList listEntries(ScheduleStore& store, Sheet& sheet, const TimeBlockList& blocks,
                        const QString& activity) {
  auto entries = store.readOnce(statements::plansOfActivity(activity));
  Sheet listed = sheet;
  listed.SetRows(0);
  listed.SetRows(kMaxRows);  // until they are counted
  QStringList missing;
  EntryRows rows(listed, entries, blocks, activity);
  int count = 0;
  while (entries.next()) {
    if (!isReadable(entries)) continue;
    if (!rows.write(count++)) missing << entries.text(u"SJKH");
  }
  listed.SetRows(count + kSparePlanRows);
  sheet = listed;
  return missing;
}

QString missingBlocksText(const QStringList& codes) {
  constexpr std::size_t kMostNamed = 20;
  if (codes.size() == 1) return u"时间块编号:"_qs + codes.front() + u"在时间划分中没有找到!"_qs;
  std::map<QString, int> counts;
  for (const QString& code : codes) ++counts[code];
  QStringList lines{u"下列时间块编号在时间划分中没有找到："_qs};
  for (const auto& [code, count] : counts) {
    if (static_cast<std::size_t>(lines.size()) > kMostNamed) break;
    lines << u"%1（%2 条计划）"_qs.arg(quoted(code)).arg(count);
  }
  if (counts.size() > kMostNamed) lines << u"……一共 %1 个编号"_qs.arg(counts.size());
  return lines.join(u'\n');
}

}  // namespace vellora
