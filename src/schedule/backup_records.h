#pragma once

#include "routine/planner_error.h"
#include "store/column_kind.h"
#include "store/schedule_store.h"

#include <QString>

#include <vector>

namespace vellora {

// Why a backup or a restore was refused; the numbers are shown to the user and stand apart from
// those of StoreFault and FileError.
class BackupError : public PlannerError {
 public:
  enum Number { kNotABackup = 102, kWrongColumns, kTextMissing, kUnfitValue, kDiffers };

  BackupError(Number number, const QString& description) : PlannerError(number, description) {}
};

// How a table's field travels in a backup.
enum class FieldForm { LeftOut, Number, Text, Moment };

inline FieldForm fieldForm(ColumnKind kind, const QString& name) {
  switch (kind) {
    case ColumnKind::YesNo:
    case ColumnKind::Int16:
    case ColumnKind::Int32:
      // Numbered by the database itself.
      return name.compare(u"ID"_qs, Qt::CaseInsensitive) == 0 ? FieldForm::LeftOut
                                                              : FieldForm::Number;
    case ColumnKind::DateTime:
      return FieldForm::Moment;
    case ColumnKind::Text:
    case ColumnKind::LongText:
      return FieldForm::Text;
    case ColumnKind::Other:
      break;
  }
  return FieldForm::LeftOut;
}

// The records of one table, from the first to the last, as a backup holds them.
class TableRecords {
 public:
  TableRecords(ScheduleStore& store, const QString& table);

  int columnCount() const { return static_cast<int>(forms_.size()); }
  // Texts, dates and times, which carry the text mark.
  bool isText(int col) const;

  bool next();
  // What the cells of the current record hold, "" for a field that is left out; valid until the
  // next. Throws BackupError for a value that could not be restored as it is.
  const std::vector<QString>& texts();

 private:
  FieldForm form(int col) const { return forms_[static_cast<std::size_t>(col)]; }
  QString fittingText(int col);
  void requireEmptyText(int col);
  QString reasonAgainst(int col, const QString& text) const;
  QString whereIs(int col) const;

  QString table_;
  RowCursor rows_;
  std::vector<FieldForm> forms_;
  std::vector<QString> texts_;
  qint64 record_ = 0;  // counted from 1
};

}  // namespace vellora
