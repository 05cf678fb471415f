#include "backup/table_backup.h"

#include "backup/backup_error.h"
#include "backup/table_records.h"
#include "grid/files/workbook_file.h"

#include <optional>

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
    for (int col = 0; col < sheet.Cols(); ++col)
      sheet.SetCellText(col, row, records.fittingText(col));
  }
  sheet.SetRows(row);
}

bool hasSameColumns(const Sheet& sheet, const TableRecords& records) {
  if (sheet.Cols() != records.columnCount()) return false;
  for (int col = 0; col < sheet.Cols(); ++col) {
    if ((sheet.CellOption(col, kEveryRow) == 1) != records.isText(col)) return false;
  }
  return true;
}

bool isSameRow(const Sheet& sheet, int row, TableRecords& records) {
  for (int col = 0; col < records.columnCount(); ++col) {
    if (sheet.GetCellText(col, row) != records.text(col)) return false;
  }
  return true;
}

bool holdsAll(const Sheet& sheet, TableRecords& records, const std::function<void(int)>& step) {
  if (!hasSameColumns(sheet, records)) return false;
  int row = 0;
  for (; records.next(); ++row) {
    if (row % kRowsPerStep == 0) step(row);
    if (row == sheet.Rows() || !isSameRow(sheet, row, records)) return false;
  }
  return row == sheet.Rows();
}

// Gives the number of records. The workbook is gone before the file is read back: two of them would
// take twice the memory.
qint64 writeTables(ScheduleStore& store, SafeFile& file, const WorkProgress& progress) {
  Workbook workbook;
  qint64 total = 0;
  for (int k = 0; k < kBackedUpTables; ++k) {
    workbook.AddSheet(QString::number(k + 1));
    workbook.SetSheetName(backedUpTable(k), k);
    TableRecords records(store, backedUpTable(k));
    fillSheet(workbook.sheetAt(k), records, [&](int row) {
      report(progress, {u"正在读取表 %1……"_qs.arg(backedUpTable(k)), total + row});
    });
    total += workbook.sheetAt(k).Rows();
  }
  writeWorkbook(workbook, file, [&] { report(progress, {u"正在写入备份文件……"_qs, total}); });
  return total;
}

bool holdsTables(const Workbook& workbook, ScheduleStore& store,
                 const std::function<void(qint64)>& step) {
  if (workbook.SheetCount() < kBackedUpTables) return false;
  qint64 before = 0;
  for (int k = 0; k < kBackedUpTables; ++k) {
    const Sheet& sheet = workbook.sheetAt(k);
    TableRecords records(store, backedUpTable(k));
    if (workbook.SheetName(k) != backedUpTable(k)) return false;
    if (!holdsAll(sheet, records, [&](int row) { step(before + row); })) return false;
    before += sheet.Rows();
  }
  return true;
}

// None when the file does not hold the schedule.
std::optional<Workbook> checkedFile(const QString& path, ScheduleStore& store,
                                    const std::function<void(qint64)>& step) {
  try {
    Workbook workbook = readWorkbookFile(path, [&] { step(0); });
    if (holdsTables(workbook, store, step)) return workbook;
  } catch (const FileError&) {
    return {};  // written well, and yet it does not read back
  }
  return {};
}

}  // namespace

qint64 BackupTables(ScheduleStore& store, Workbook& workbook, const QString& path,
                    const WorkProgress& progress) {
  // One view of the schedule for all tables, so that they fit each other and the comparison.
  const ScheduleStore::ReadTransaction view(store);
  SafeFile file(path);
  const qint64 total = writeTables(store, file, progress);
  auto checked = checkedFile(file.sync(), store, [&](qint64 done) {
    report(progress, {u"正在核对备份文件……"_qs, done, total});
  });
  if (!checked) {
    throw BackupError(BackupError::kDiffers,
                      u"文件“%1”写好后，读回的内容与日程表不一致。"_qs.arg(path));
  }
  file.commit();
  workbook = std::move(*checked);
  return total;
}

}  // namespace vellora
