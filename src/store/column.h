#pragma once

#include "store/cell.h"

#include <QList>
#include <QString>
#include <QVariant>

namespace vellora {

// A column of a set of rows, told by its declared type.
struct Column {
  QString name;
  ColumnKind kind = ColumnKind::Other;
  qsizetype mostCharacters = -1;  // of a Text column; -1 without limit
  QString shownName;              // what the user knows it by
};

Column describedColumn(const QString& name, const QString& declaredType, const QString& shownName);

// True when two names are the same but for the case of their Latin letters.
bool isSameName(QStringView one, QStringView other);

// A column by its name, without regard to case, or by its position. StoreFault::ColumnMissing when
// there is none.
qsizetype columnPosition(const QList<Column>& columns, QStringView name);
const Column& columnAt(const QList<Column>& columns, int position);

// A value in the form in which the column stores it. An invalid or null variant is no value. Throws
// StoreError, naming the column as it is shown, for a value that the column cannot hold; nothing is
// cut off. A fraction for an integer column rounds half to even; a character outside the basic
// plane counts once.
OwnedCell columnCell(const Column& column, const QVariant& value);
// Whether it can hold what a text says.
bool canHold(const Column& column, const QString& text);

}  // namespace vellora
