#pragma once

#include <QStringView>
#include <QVarLengthArray>

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

}  // namespace vellora
