#include "planning/plan_listing.h"

#include "planning/plan_rows.h"
#include "planning/saved_entries.h"
#include "store/statements.h"

#include <array>

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

QStringList listPlan(ScheduleStore& store, Sheet& sheet, const TimeBlockList& blocks,
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

}  // namespace vellora
