#pragma once

#include <QString>
#include <QStringList>

namespace vellora {

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

}  // namespace vellora
