#pragma once

#include "schedule/whole_table.h"
#include "store/schedule_store.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QTime>

#include <map>
#include <utility>
#include <vector>

namespace vellora {

// One division of the day. Its code is its key; the rest is shown.
struct TimeBlock {
  QString code;
  QString cell;  // "08:00-09:30", line break, name: how a grid shows it
  QString line;  // "08:00-09:30 name": how a list shows it
  QString hours;
  QString name;
  QTime start;  // invalid where none is stored
  QTime end;
};

// The time blocks in ascending start time, as they were when the list was made.
class TimeBlockList {
 public:
  TimeBlockList() = default;
  // Throws StoreError.
  explicit TimeBlockList(ScheduleStore& store);

  qsizetype size() const { return blocks_.size(); }
  auto begin() const { return blocks_.begin(); }
  auto end() const { return blocks_.end(); }
  // Null when there is no such position or code; of several blocks with one code, the first.
  const TimeBlock* at(qsizetype position) const;
  const TimeBlock* find(const QString& code) const;
  // The block that a typed text means: its code, its name, its hours, or how a grid or list shows
  // it. Null when it means none, or more than one.
  const TimeBlock* meant(const QString& typed) const;

 private:
  QList<TimeBlock> blocks_;
  // Ordered: hashing a short code takes longer than finding it among a day's few blocks.
  QMap<QString, qsizetype> position_by_code_;
};

// The day's division into time blocks: start, end, code and name, one row each.
inline constexpr int kTimeBlockRows = 50;

void setUpTimeBlocks(Sheet& sheet);
Changes timeBlockChanges(const Sheet& sheet, const TableRows& stored);

// Fills the sheet with the stored blocks by start time. It has kTimeBlockRows rows, or as many as
// there are blocks when those are more.
TableRows LoadTimeBlocks(ScheduleStore& store, Sheet& sheet);

// The sheet's complete rows: code and how a list shows it, in their order.
std::vector<std::pair<QString, QString>> completeBlocks(const Sheet& sheet);

// A code that no complete row has any more, and how many plans it has.
struct LostBlock {
  QString code;
  qsizetype plans;
};
// Those with plans that a save would lose. Throws StoreError.
std::vector<LostBlock> blocksLostBy(ScheduleStore& store, const Sheet& sheet,
                                    const TableRows& stored);

// New codes for the plans of blocks that go.
using NewCodes = std::map<QString, QString>;

// Makes the sheet's complete rows the stored blocks; see saveTable. Codes may repeat, hours may
// overlap or be reversed. The plans get their new codes in the same transaction; where that would
// bring two plans to one place, StoreFault::Other names the first, and nothing is saved.
TableRows SaveTimeBlocks(ScheduleStore& store, const Sheet& sheet,
                         const TableRows* asRead = nullptr, const NewCodes& newCodes = {});

}  // namespace vellora
