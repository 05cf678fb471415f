#include "schedule/backup.h"

#include "grid/files/export_file.h"
#include "grid/files/workbook_file.h"
#include "routine/number_text.h"
#include "schedule/backup_records.h"
#include "store/schema_tables.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <algorithm>
#include <vector>

namespace vellora {
namespace {

constexpr int kRowsPerStep = 1'024;  // made, and reported, at a time
constexpr int kRecordsPerStep = 256;

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

// A whole number as a backup writes it, or what a text of any other origin begins with.
QVariant numberIn(const QString& text) {
  bool isWhole = false;
  const int number = text.toInt(&isWhole);
  return isWhole ? QVariant(number) : QVariant(numericValue(text));
}

// The values of one sheet on their way into its table.
class TableWriter {
 public:
  TableWriter(ScheduleStore& store, const QString& table, const Sheet& sheet);

  // Adds every record. `step` is told row numbers now and then.
  void run(const std::function<void(int)>& step);

 private:
  void requireColumns() const;
  void addRecord(int row);
  QVariant valueOf(FieldForm form, int col, int row) const;

  QString table_;
  const Sheet& sheet_;
  Recordset records_;
  std::vector<FieldForm> forms_;
};

TableWriter::TableWriter(ScheduleStore& store, const QString& table, const Sheet& sheet)
    : table_(table), sheet_(sheet), records_(store.open(table)) {
  for (int col = 0; col < records_.columnCount(); ++col) {
    forms_.push_back(fieldForm(records_.columnKind(col), records_.columnName(col)));
  }
  requireColumns();
}

// Fields are told apart by position alone: of another number of columns every value could land in
// the wrong field.
void TableWriter::requireColumns() const {
  const int wanted = static_cast<int>(forms_.size());
  if (sheet_.Rows() == 0 || sheet_.Cols() == wanted) return;
  throw BackupError(BackupError::kWrongColumns,
                    u"备份中的表“%1”有 %2 列，日程表需要 %3 列。"_qs.arg(shownTable(table_))
                        .arg(sheet_.Cols())
                        .arg(wanted));
}

void TableWriter::run(const std::function<void(int)>& step) {
  for (int row = 0; row < sheet_.Rows(); ++row) {
    if (row % kRecordsPerStep == 0) step(row);
    try {
      addRecord(row);
    } catch (const StoreError& error) {
      const QString where = u"表“%1”第 %2 条记录："_qs.arg(shownTable(table_)).arg(row + 1);
      throw StoreError(error.fault(), where + error.description());
    }
  }
}

void TableWriter::addRecord(int row) {
  records_.addNew();
  for (int col = 0; col < static_cast<int>(forms_.size()); ++col) {
    const FieldForm form = forms_[static_cast<std::size_t>(col)];
    if (form != FieldForm::LeftOut) records_.set(col, valueOf(form, col, row));
  }
  records_.update();
}

QVariant TableWriter::valueOf(FieldForm form, int col, int row) const {
  const QString text = sheet_.GetCellText(col, row);
  if (form == FieldForm::Number) return numberIn(text);
  if (form == FieldForm::Moment && text.isEmpty()) return {};
  return text;
}

int restoredTables(const Workbook& backup) {
  return std::min(kBackedUpTables, backup.SheetCount());
}

// Any other workbook of the planner, the board's template for one, is no backup.
void requireBackup(const Workbook& backup, const QString& path) {
  for (int k = 0; k < restoredTables(backup); ++k) {
    const QString& table = backedUpTable(k);
    if (backup.SheetName(k).compare(table, Qt::CaseInsensitive) == 0) continue;
    throw BackupError(
        BackupError::kNotABackup,
        u"文件“%1”不是日程表的备份：第 %2 张工作表不是“%3”。"_qs.arg(path).arg(k + 1).arg(table));
  }
}

qint64 rowsIn(const Workbook& backup) {
  qint64 rows = 0;
  for (int k = 0; k < restoredTables(backup); ++k) rows += backup.sheetAt(k).Rows();
  return rows;
}

void replaceTables(ScheduleStore& store, const Workbook& backup, const WorkProgress& progress) {
  const qint64 total = rowsIn(backup);
  qint64 before = 0;
  for (int k = 0; k < restoredTables(backup); ++k) {
    const Sheet& sheet = backup.sheetAt(k);
    const QString what = u"正在恢复表“%1”……"_qs.arg(shownTable(backedUpTable(k)));
    report(progress, {what, before, total});
    store.execute(statements::deleteAllFrom(backedUpTable(k)));
    TableWriter(store, backedUpTable(k), sheet).run([&](int row) {
      report(progress, {what, before + row, total});
    });
    before += sheet.Rows();
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

qint64 RestoreTables(ScheduleStore& store, Workbook& workbook, const QString& path,
                     const WorkProgress& progress) {
  Workbook backup = readWorkbookFile(path, [&] { report(progress, {u"正在读取备份文件……"_qs}); });
  requireBackup(backup, path);
  ScheduleStore::Transaction restore(store);
  replaceTables(store, backup, progress);
  restore.commit();
  const qint64 total = rowsIn(backup);
  workbook = std::move(backup);
  return total;
}

}  // namespace vellora
