#include "backup/table_backup.h"

#include "backup/backup_error.h"
#include "backup/backup_field.h"
#include "grid/files/workbook_file.h"

#include <algorithm>
#include <vector>

namespace vellora {
namespace {

constexpr int kRowsPerStep = 1'024;  // rows made, and reported, at a time

class TableReader {
 public:
  TableReader(ScheduleStore& store, const QString& table, Sheet& sheet)
      : table_(table), rows_(store.readOnce(table)), sheet_(sheet) {}

  // Gives the number of records; `before` is how many the tables before had.
  qint64 read(qint64 before, const WorkProgress& progress);

 private:
  void setUpColumns();
  void readRow(int row);
  QString textOf(int col, int row);

  QString table_;
  RowCursor rows_;
  Sheet& sheet_;
  std::vector<FieldForm> forms_;
};

qint64 TableReader::read(qint64 before, const WorkProgress& progress) {
  setUpColumns();
  int row = 0;
  for (; rows_.next(); ++row) {
    if (row == kMaxRows)
      throw BackupError(BackupError::kTooManyRows, u"表“%1”的记录太多。"_qs.arg(table_));
    if (row % kRowsPerStep == 0) {
      sheet_.SetRows(std::min(row, kMaxRows - kRowsPerStep) + kRowsPerStep);
      report(progress, {u"正在读取表 %1……"_qs.arg(table_), before + row});
    }
    readRow(row);
  }
  sheet_.SetRows(row);
  return row;
}

void TableReader::setUpColumns() {
  sheet_.SetCols(rows_.columnCount());
  sheet_.SetRows(0);
  for (int col = 0; col < rows_.columnCount(); ++col) {
    forms_.push_back(fieldForm(rows_.columnKind(col), rows_.columnName(col)));
    const bool isText = forms_.back() == FieldForm::Text || forms_.back() == FieldForm::Moment;
    if (isText) sheet_.SetCellOption(col, kEveryRow, 1);
  }
}

void TableReader::readRow(int row) {
  for (int col = 0; col < static_cast<int>(forms_.size()); ++col) {
    const FieldForm form = forms_[static_cast<std::size_t>(col)];
    if (form == FieldForm::Number) sheet_.SetCellValue(col, row, rows_.value(col));
    if (form == FieldForm::Text) sheet_.SetCellText(col, row, textOf(col, row));
    if (form == FieldForm::Moment) sheet_.SetCellText(col, row, rows_.text(col));
  }
}

// No value and an empty text would read the same afterwards.
QString TableReader::textOf(int col, int row) {
  if (!rows_.value(col).isValid()) {
    throw BackupError(
        BackupError::kTextMissing,
        u"表“%1”第 %2 条记录的“%3”没有值。"_qs.arg(table_).arg(row + 1).arg(rows_.columnName(col)));
  }
  return rows_.text(col);
}

bool isSameContent(const Sheet& one, const Sheet& other, const std::function<void()>& pulse) {
  if (one.Rows() != other.Rows() || one.Cols() != other.Cols()) return false;
  for (int row = 0; row < one.Rows(); ++row) {
    if (row % kRowsPerStep == 0) pulse();
    for (int col = 0; col < one.Cols(); ++col) {
      if (one.GetCellText(col, row) != other.GetCellText(col, row)) return false;
      if (one.CellOption(col, row) != other.CellOption(col, row)) return false;
    }
  }
  return true;
}

void compareWithFile(const Workbook& workbook, const QString& path,
                     const std::function<void()>& pulse) {
  const Workbook written = readWorkbookFile(path, pulse);
  bool same = written.SheetCount() == workbook.SheetCount();
  for (int i = 0; same && i < workbook.SheetCount(); ++i) {
    same = written.SheetName(i) == workbook.SheetName(i) &&
           isSameContent(workbook.sheetAt(i), written.sheetAt(i), pulse);
  }
  if (!same) {
    throw BackupError(BackupError::kDiffers, u"文件“%1”的内容与日程表不一致。"_qs.arg(path));
  }
}

// One view of the schedule for all tables, so that they fit each other.
qint64 readTables(ScheduleStore& store, Workbook& workbook, const WorkProgress& progress) {
  const ScheduleStore::ReadTransaction view(store);
  qint64 total = 0;
  for (int k = 0; k < static_cast<int>(backedUpTables().size()); ++k) {
    const QString& table = backedUpTables()[static_cast<std::size_t>(k)];
    workbook.AddSheet(QString::number(k + 1));
    workbook.SetSheetName(table, k);
    workbook.SetCurrentSheet(k);
    total += TableReader(store, table, workbook.sheet()).read(total, progress);
  }
  workbook.SetCurrentSheet(0);
  return total;
}

}  // namespace

qint64 BackupTables(ScheduleStore& store, Workbook& workbook, const QString& path,
                    const WorkProgress& progress) {
  Workbook backup;
  const qint64 total = readTables(store, backup, progress);
  writeWorkbookFile(backup, path, [&] { report(progress, {u"正在写入备份文件……"_qs, total}); });
  compareWithFile(backup, path, [&] {
    report(progress, {u"正在核对备份文件……"_qs, total, 0, false});
  });
  workbook = std::move(backup);
  return total;
}

}  // namespace vellora
