#include "backup/backup_error.h"
#include "backup/backup_field.h"
#include "backup/table_backup.h"
#include "grid/files/workbook_file.h"
#include "routine/number_text.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <algorithm>
#include <vector>

namespace vellora {
namespace {

constexpr int kRowsPerStep = 256;

class TableWriter {
 public:
  TableWriter(ScheduleStore& store, const QString& table, const Sheet& sheet);

  enum class Mode { Check, Store };
  // Sets every field of every record, and stores the records. `step` is told each row's number.
  void run(Mode mode, const std::function<void(int)>& step);

 private:
  struct Field {
    QString name;
    FieldForm form;
  };

  void requireColumns() const;
  void setRow(int row);
  QVariant valueOf(FieldForm form, int col, int row) const;

  QString table_;
  const Sheet& sheet_;
  Recordset records_;
  std::vector<Field> fields_;
};

TableWriter::TableWriter(ScheduleStore& store, const QString& table, const Sheet& sheet)
    : table_(table), sheet_(sheet), records_(store.open(table)) {
  for (int i = 0; i < records_.columnCount(); ++i) {
    const QString name = records_.columnName(i);
    fields_.push_back({name, fieldForm(records_.columnKind(i), name)});
  }
  requireColumns();
}

// Fields are told apart by position alone: of another number of columns every value could land in
// the wrong field.
void TableWriter::requireColumns() const {
  const int wanted = static_cast<int>(fields_.size());
  if (sheet_.Rows() == 0 || sheet_.Cols() == wanted) return;
  throw BackupError(
      BackupError::kWrongColumns,
      u"备份中的表“%1”有 %2 列，日程表需要 %3 列。"_qs.arg(table_).arg(sheet_.Cols()).arg(wanted));
}

void TableWriter::run(Mode mode, const std::function<void(int)>& step) {
  for (int row = 0; row < sheet_.Rows(); ++row) {
    if (row % kRowsPerStep == 0) step(row);
    try {
      setRow(row);
      if (mode == Mode::Store) records_.update();
    } catch (const StoreError& error) {
      const QString where = u"表“%1”第 %2 条记录："_qs.arg(table_).arg(row + 1);
      throw StoreError(error.fault(), where + error.description());
    }
  }
}

void TableWriter::setRow(int row) {
  records_.addNew();
  for (int col = 0; col < static_cast<int>(fields_.size()); ++col) {
    const Field& field = fields_[static_cast<std::size_t>(col)];
    if (field.form == FieldForm::LeftOut) continue;
    records_.set(field.name, valueOf(field.form, col, row));
  }
}

QVariant TableWriter::valueOf(FieldForm form, int col, int row) const {
  if (form == FieldForm::Number) {
    if (const auto number = sheet_.CellNumber(col, row)) return *number;
    return numericValue(sheet_.GetCellText(col, row));
  }
  const QString text = sheet_.GetCellText(col, row);
  if (form == FieldForm::Moment && text.isEmpty()) return {};
  return text;
}

int restoredTables(const Workbook& backup) {
  return std::min(static_cast<int>(backedUpTables().size()), backup.SheetCount());
}

// Any other workbook of the planner, the board's template for one, is no backup.
void requireBackup(const Workbook& backup, const QString& path) {
  for (int k = 0; k < restoredTables(backup); ++k) {
    const QString& table = backedUpTables()[static_cast<std::size_t>(k)];
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

void runAll(ScheduleStore& store, const Workbook& backup, TableWriter::Mode mode,
            const QString& what, const WorkProgress& progress) {
  const qint64 total = rowsIn(backup);
  qint64 before = 0;
  for (int k = 0; k < restoredTables(backup); ++k) {
    const QString& table = backedUpTables()[static_cast<std::size_t>(k)];
    const Sheet& sheet = backup.sheetAt(k);
    if (mode == TableWriter::Mode::Store) store.execute(statements::deleteAllFrom(table));
    TableWriter(store, table, sheet).run(mode, [&](int row) {
      report(progress, {what.arg(table), before + row, total});
    });
    before += sheet.Rows();
  }
}

}  // namespace

qint64 RestoreTables(ScheduleStore& store, Workbook& workbook, const QString& path,
                     const WorkProgress& progress) {
  Workbook backup = readWorkbookFile(path, [&] { report(progress, {u"正在读取备份文件……"_qs}); });
  requireBackup(backup, path);
  runAll(store, backup, TableWriter::Mode::Check, u"正在检查表 %1……"_qs, progress);
  ScheduleStore::Transaction restore(store);
  runAll(store, backup, TableWriter::Mode::Store, u"正在恢复表 %1……"_qs, progress);
  restore.commit();
  const qint64 total = rowsIn(backup);
  workbook = std::move(backup);
  return total;
}

}  // namespace vellora
