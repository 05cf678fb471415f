#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QVarLengthArray>

#include <initializer_list>

namespace vellora {

// A value for a place in a query, as the database takes it.
struct QueryValue {
  QueryValue(const QString& text);
  // Throws StoreFault::NotADateOrTime for a day that does not exist.
  QueryValue(QDate date);

  QByteArray bytes;  // UTF-8
};

// A statement or a condition of the planner's dialect (see dialect.h) and the values of its places.
// A place is written "?" and stands for a text or a date, so that no value can change what is
// asked.
class Query {
 public:
  Query(QString text) : text_(std::move(text)) {}  // without places, or the name of a table
  Query(QString text, std::initializer_list<QueryValue> values) : text_(std::move(text)) {
    for (const QueryValue& value : values) values_.append(value.bytes);
  }

  const QString& text() const { return text_; }
  qsizetype valueCount() const { return values_.size(); }
  const QByteArray& value(qsizetype place) const { return values_[place]; }

 private:
  QString text_;
  QVarLengthArray<QByteArray, 3> values_;
};

}  // namespace vellora
