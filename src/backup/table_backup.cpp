#include "backup/table_backup.h"

#include "backup/backup_error.h"
#include "backup/table_records.h"
#include "grid/files/export_file.h"
#include "grid/files/workbook_file.h"
#include "store/schema_tables.h"

namespace vellora {
namespace {

constexpr int kRowsPerStep = 1'024;  // rows made, and reported, at a time

void setUpColumns(Sheet& sheet, const TableRecords& records) {
  sheet.SetCols(records.columnCount());
  sheet.SetRows(0);
  for (int col = 0; col < records.columnCount(); ++col) {
    if (records.isText(col)) sheet.SetCellOption(col, kEveryRow, 1);
  }
}

void fillSheet(Sheet& sheet, TableRecords& records, const std::function<void(int)>& step) {
  setUpColumns(sheet, records);
  int row = 0;
  for (; records.next(); ++row) {
    if (row % kRowsPerStep == 0) {
      step(row);
      sheet.SetRows(row + kRowsPerStep);
    }
    sheet.SetRowTexts(row, records.texts());
  }
  sheet.SetRows(row);
}

// One view of the schedule for all tables, so that they fit each other.
qint64 readTables(ScheduleStore& store, Workbook& workbook, const WorkProgress& progress) {
  const ScheduleStore::ReadTransaction view(store);
  qint64 total = 0;
  for (int k = 0; k < kBackedUpTables; ++k) {
    workbook.AddSheet(QString::number(k + 1));
    workbook.SetSheetName(backedUpTable(k), k);
    TableRecords records(store, backedUpTable(k));
    fillSheet(workbook.sheetAt(k), records, [&](int row) {
      report(progress, {u"正在读取表“%1”……"_qs.arg(shownTable(backedUpTable(k))), total + row});
    });
    total += workbook.sheetAt(k).Rows();
  }
  return total;
}

bool readsBack(const QString& path, const Workbook& workbook, const std::function<void()>& pulse) {
  try {
    return holdsWorkbook(path, workbook, pulse);
  } catch (const FileError&) {
    return false;  // written well, and yet it does not read back
  }
}

}  // namespace

qint64 BackupTables(ScheduleStore& store, Workbook& workbook, const QString& path,
                    const QString& programDir, const WorkProgress& progress) {
  requireNoProgramFile(path, programDir);
  Workbook backup;
  SafeFile file(path);
  const qint64 total = readTables(store, backup, progress);
  writeWorkbook(backup, file, [&] { report(progress, {u"正在写入备份文件……"_qs, total}); });
  const auto checks = [&] { report(progress, {u"正在核对备份文件……"_qs, total}); };
  checks();
  if (!readsBack(file.sync(), backup, checks)) {
    throw BackupError(BackupError::kDiffers,
                      u"文件“%1”写好后，读回的内容与日程表不一致。"_qs.arg(path));
  }
  file.commit();
  workbook = std::move(backup);
  return total;
}

}  // namespace vellora
