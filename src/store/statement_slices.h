#pragma once

#include <QStringView>
#include <QVarLengthArray>

#include <string_view>

namespace vellora {

class PreparedStatement;

// The literals of one statement as the database takes them: UTF-8, dates in their stored form. Made
// for the thousands of small look-ups behind a board: short literals need no memory of their own.
class Literals {
 public:
  void addText(QStringView inside);  // doubled quotes and all
  // Throws StoreFault::NotADateOrTime when the text is no date or time.
  void addMoment(QStringView inside);

  // The statement keeps pointing at the literals until it is reset.
  void bindTo(PreparedStatement& statement) const;

 private:
  struct Slice {
    qsizetype begin;
    qsizetype end;
  };

  void append(QStringView text);

  QVarLengthArray<char, 64> bytes_;
  QVarLengthArray<Slice, 4> slices_;
};

// The statement with every literal emptied: '' and ##. Equal shapes share a prepared statement.
using StatementShape = QVarLengthArray<char16_t, 384>;

// Parts a statement into shape and literals in one pass. A literal without an end stays in the
// shape, where the translation finds it.
StatementShape slicedStatement(QStringView statement, Literals& literals);

}  // namespace vellora
