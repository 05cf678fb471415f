#pragma once

#include "grid/sheet/workbook.h"
#include "routine/work_step.h"
#include "store/schedule_store.h"

#include <QString>

#include <array>

namespace vellora {

// A backup is a workbook file whose sheets 0 to 4 hold the five tables in this order and are named
// after them: one row per record, one column per field in the table's own order, no headings.
// Integers and yes/no are numbers; texts, dates and times are texts with the text mark. A numeric
// field named ID and fields of any other kind are left empty.
inline constexpr int kBackedUpTables = 5;
inline const std::array<QString, kBackedUpTables>& backedUpTables() {
  static const std::array<QString, kBackedUpTables> tables{u"SJ"_qs, u"HD"_qs, u"JH"_qs, u"BW"_qs,
                                                           u"MM"_qs};
  return tables;
}
inline const QString& backedUpTable(int index) {
  return backedUpTables()[static_cast<std::size_t>(index)];
}

// Both throw StoreError, FileError, BackupError and WorkCancelled; they give the number of records
// and leave the file's content in `workbook`, which stays as it was when they throw.

// Replaces the file whole or not at all, and only after the new one was read back from the disk and
// held what the schedule holds. Refuses a text without a value and whatever a restore would refuse.
// `path` is one of the system's own, but none of the planner's files in `programDir`. Other
// programs cannot save while the tables are read.
qint64 BackupTables(ScheduleStore& store, Workbook& workbook, const QString& path,
                    const QString& programDir, const WorkProgress& progress = {});

// Replaces all five tables or none. Of a file with fewer sheets only the first tables are replaced.
// Empty cells of date columns become no value; ID columns get new numbers.
qint64 RestoreTables(ScheduleStore& store, Workbook& workbook, const QString& path,
                     const WorkProgress& progress = {});

}  // namespace vellora
