#include "backup/table_records.h"

#include "backup/backup_error.h"
#include "store/moment.h"

namespace vellora {
namespace {

constexpr qsizetype kShown = 30;  // characters of a refused text

}  // namespace

TableRecords::TableRecords(ScheduleStore& store, const QString& table)
    : table_(table), rows_(store.readOnce(table)) {
  for (int col = 0; col < rows_.columnCount(); ++col) {
    forms_.push_back(fieldForm(rows_.columnKind(col), rows_.columnName(col)));
  }
}

bool TableRecords::isText(int col) const {
  return form(col) == FieldForm::Text || form(col) == FieldForm::Moment;
}

bool TableRecords::next() {
  ++record_;
  return rows_.next();
}

QString TableRecords::text(int col) {
  return form(col) == FieldForm::LeftOut ? QString() : rows_.text(col);
}

QString TableRecords::fittingText(int col) {
  QString text = this->text(col);
  if (text.isEmpty()) {
    requireEmptyText(col);
  } else {
    requireFitting(col, text);
  }
  return text;
}

// No value and an empty text would read the same afterwards.
void TableRecords::requireEmptyText(int col) {
  if (form(col) != FieldForm::Text || rows_.value(col).isValid()) return;
  throw BackupError(BackupError::kTextMissing, whereIs(col) + u"没有值。");
}

// Another program may have put anything into a column; a restore would refuse it, or make it 0.
void TableRecords::requireFitting(int col, const QString& text) const {
  bool fits = true;
  if (form(col) == FieldForm::Moment) fits = readMoment(text).has_value();
  if (form(col) == FieldForm::Number) text.toInt(&fits);
  if (fits) return;
  const QString wanted = form(col) == FieldForm::Moment ? u"日期或时间"_qs : u"整数"_qs;
  throw BackupError(BackupError::kUnfitValue,
                    whereIs(col) + u"不是%1：“%2”。"_qs.arg(wanted, text.left(kShown)));
}

QString TableRecords::whereIs(int col) const {
  return u"表“%1”第 %2 条记录的“%3”"_qs.arg(table_).arg(record_).arg(rows_.columnName(col));
}

}  // namespace vellora
