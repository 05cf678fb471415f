#include "schedule/backup_records.h"

#include "routine/text.h"
#include "store/moment.h"
#include "store/schema_tables.h"

namespace vellora {

TableRecords::TableRecords(ScheduleStore& store, const QString& table)
    : table_(table), rows_(store.readOnce(table)) {
  for (int col = 0; col < rows_.columnCount(); ++col) {
    forms_.push_back(fieldForm(rows_.columnKind(col), rows_.columnName(col)));
  }
  texts_.resize(forms_.size());
}

bool TableRecords::isText(int col) const {
  return form(col) == FieldForm::Text || form(col) == FieldForm::Moment;
}

bool TableRecords::next() {
  ++record_;
  return rows_.next();
}

const std::vector<QString>& TableRecords::texts() {
  for (int col = 0; col < columnCount(); ++col) {
    if (form(col) != FieldForm::LeftOut) texts_[static_cast<std::size_t>(col)] = fittingText(col);
  }
  return texts_;
}

QString TableRecords::fittingText(int col) {
  QString text = rows_.text(col);
  if (text.isEmpty()) {
    requireEmptyText(col);
  } else if (const QString reason = reasonAgainst(col, text); !reason.isEmpty()) {
    throw BackupError(BackupError::kUnfitValue,
                      whereIs(col) + u"%1：%2。"_qs.arg(reason, quoted(text)));
  }
  return text;
}

// No value and an empty text would read the same afterwards.
void TableRecords::requireEmptyText(int col) {
  if (form(col) != FieldForm::Text || rows_.value(col).isValid()) return;
  throw BackupError(BackupError::kTextMissing, whereIs(col) + u"没有值。");
}

// Another program may have put anything into a column; a restore would refuse it, or make it 0.
// Empty for a text that fits.
QString TableRecords::reasonAgainst(int col, const QString& text) const {
  if (form(col) == FieldForm::Text) return rows_.canHold(col, text) ? QString() : u"太长"_qs;
  if (form(col) == FieldForm::Moment) return readMoment(text) ? QString() : u"不是日期或时间"_qs;
  bool isWhole = false;
  text.toInt(&isWhole);
  if (!isWhole) return u"不是整数"_qs;
  const bool isShort = rows_.columnKind(col) == ColumnKind::Int16;
  return !isShort || rows_.canHold(col, text) ? QString() : u"超出了范围"_qs;
}

QString TableRecords::whereIs(int col) const {
  return u"表“%1”第 %2 条记录的“%3”"_qs.arg(shownTable(table_))
      .arg(record_)
      .arg(rows_.shownName(col));
}

}  // namespace vellora
