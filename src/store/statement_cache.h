#pragma once

#include "store/column.h"
#include "store/prepared_statement.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QVarLengthArray>

#include <memory>
#include <vector>

namespace vellora {

class PreparedStatement;

// The values of a statement's literals as the database takes them: UTF-8, dates in their stored
// form. Made for the hundreds of look-ups behind a board: short literals need no memory of their
// own.
class Literals {
 public:
  void clear();
  void addText(QStringView inside);  // doubled quotes and all
  // Throws StoreFault::NotADateOrTime when the text is no date or time.
  void addMoment(QStringView inside);

  // The statement goes on pointing at the literals until it is bound anew.
  void bindTo(PreparedStatement& statement) const;

 private:
  struct Slice {
    qsizetype begin;
    qsizetype end;
  };

  void append(QStringView text);

  QVarLengthArray<char, 96> bytes_;
  QVarLengthArray<Slice, 4> slices_;
};

class Literals;

// A statement without the insides of its literals. Statements of one shape share what was prepared
// for it.
class StatementShape {
 public:
  // A literal without an end stays in the shape, where the translation finds it.
  explicit StatementShape(QStringView statement);

  // The statement with every literal empty: '' and ##.
  QString text() const { return pieces_.join(QString()); }

  // True when a statement has this shape; then the literals are those of the statement. Throws
  // StoreFault::NotADateOrTime for a date literal that is none.
  bool takeLiterals(QStringView statement, Literals& literals) const;

 private:
  // Each piece but the last ends with the mark that opens a literal, each but the first begins with
  // the mark that closes one.
  QStringList pieces_;
};

class Literals;

// A prepared statement and what its rows look like.
struct PreparedSet {
  PreparedStatement statement;
  QList<Column> columns;
  QString table;  // empty when the rows cannot be changed
  bool isWholeTable = false;

  // Rows that can be changed begin with a result column more, their row number.
  int firstColumn() const { return table.isEmpty() ? 0 : 1; }
};

// Every statement that was used on a connection, ready to run again. The planner has a few dozen
// shapes, so nothing is ever thrown away and references stay valid.
class StatementCache {
 public:
  explicit StatementCache(sqlite3* connection) : connection_(connection) {}

  // A statement of the dialect that is not running; its literals are put into `literals`. Throws
  // StoreError.
  PreparedSet& setOf(QStringView statement, Literals& literals);

  // A statement in the engine's own words.
  PreparedStatement& native(const QByteArray& sql);

 private:
  struct Known {
    StatementShape shape;
    PreparedSet set;
  };

  sqlite3* connection_;
  // The one used last comes first: a board fill goes to and fro between two, which are found faster
  // by comparing than by any hash.
  std::vector<std::unique_ptr<Known>> known_;
  QHash<QByteArray, std::shared_ptr<PreparedStatement>> native_;
};

}  // namespace vellora
