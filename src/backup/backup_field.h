#pragma once

#include "store/column_kind.h"

#include <QString>

namespace vellora {

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

}  // namespace vellora
