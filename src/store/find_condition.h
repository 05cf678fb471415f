#pragma once

#include "store/column.h"
#include "store/query.h"

#include <QList>

namespace vellora {

// A condition such as HDBH=? AND SFWC=0: columns that equal values or literals, joined by AND.
// Texts are compared exactly; a column without a value equals nothing.
class FindCondition {
 public:
  // Throws StoreFault::Syntax for any other condition, ColumnMissing for a column that the set does
  // not have, NotADateOrTime for a date that is none.
  FindCondition(const Query& condition, const QList<Column>& columns);

  bool isMetBy(const StoredRow& row) const;

 private:
  struct Equality {
    qsizetype column;
    QByteArray text;  // as a column stores it
  };

  QList<Equality> equalities_;
};

}  // namespace vellora
