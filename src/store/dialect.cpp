#include "store/dialect.h"

#include "store/statement_pieces.h"

namespace vellora {

QString textLiteral(QStringView text) {
  return joinedPieces(TextLiteral{text});
}

QString dateLiteral(QDate date) {
  return joinedPieces(date);
}

}  // namespace vellora
