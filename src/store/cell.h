#pragma once

#include "store/column_kind.h"

#include <QByteArray>
#include <QList>
#include <QVariant>

#include <string_view>

namespace vellora {

// One value as the database holds it. It does not own its bytes, which are UTF-8 for a text.
struct Cell {
  enum class Kind : unsigned char { Null, Integer, Real, Text, Bytes };

  Kind kind = Kind::Null;
  qint64 integer = 0;
  double real = 0;
  std::string_view bytes;

  bool operator==(const Cell&) const = default;
};

// The same with bytes of its own.
struct OwnedCell {
  Cell::Kind kind = Cell::Kind::Null;
  qint64 integer = 0;
  double real = 0;
  QByteArray bytes;

  Cell view() const {
    return {kind, integer, real, {bytes.constData(), static_cast<std::size_t>(bytes.size())}};
  }
};

OwnedCell owned(const Cell& cell);

// A row as the database holds it.
struct StoredRow {
  qint64 rowId = 0;  // 0 when the rows of its set cannot be changed
  QList<OwnedCell> cells;
};

// A cell as the windows read it. A number that no integer can hold reads as the nearest one; a date
// or time that cannot be read is an invalid QDate or QTime.
QVariant cellValue(const Cell& cell, ColumnKind kind);
QString cellText(const Cell& cell);
QDate cellDate(const Cell& cell);
QTime cellTime(const Cell& cell);
qint64 cellNumber(const Cell& cell);

}  // namespace vellora
