#include "store/statement_shape.h"

#include "store/literals.h"
#include "store/tokens.h"

#include <cstring>

namespace vellora {
namespace {

// Length of a literal's inside, given the mark that opened it and what follows; -1 without an end.
qsizetype literalLength(QChar mark, QStringView rest) {
  if (mark == u'#') return rest.indexOf(mark);
  const qsizetype end = textLiteralEnd(rest, 0);
  return end < 0 ? -1 : end - 1;
}

// Position of the next quote or number sign outside a name in brackets; -1 without one.
qsizetype nextMark(QStringView statement, qsizetype from) {
  bool isInName = false;
  for (qsizetype i = from; i < statement.size(); ++i) {
    const QChar character = statement[i];
    if (character == (isInName ? u']' : u'[')) isInName = !isInName;
    if (!isInName && (character == u'\'' || character == u'#')) return i;
  }
  return -1;
}

// Qt's comparison costs more than the pieces' few dozen characters are worth.
bool startsWith(QStringView text, const QString& piece) {
  return text.size() >= piece.size() &&
         std::memcmp(text.utf16(), piece.utf16(), static_cast<std::size_t>(piece.size()) * 2) == 0;
}

}  // namespace

StatementShape::StatementShape(QStringView statement) {
  qsizetype pieceStart = 0;
  qsizetype mark = nextMark(statement, 0);
  while (mark >= 0) {
    const qsizetype length = literalLength(statement[mark], statement.sliced(mark + 1));
    if (length < 0) break;
    pieces_.append(statement.sliced(pieceStart, mark + 1 - pieceStart).toString());
    pieceStart = mark + 1 + length;
    mark = nextMark(statement, pieceStart + 1);
  }
  pieces_.append(statement.sliced(pieceStart).toString());
}

bool StatementShape::takeLiterals(QStringView statement, Literals& literals) const {
  literals.clear();
  for (const QString& piece : pieces_) {
    if (!startsWith(statement, piece)) return false;
    statement = statement.sliced(piece.size());
    if (&piece == &pieces_.last()) break;
    const qsizetype length = literalLength(piece.back(), statement);
    if (length < 0) return false;
    const QStringView inside = statement.first(length);
    piece.back() == u'#' ? literals.addMoment(inside) : literals.addText(inside);
    statement = statement.sliced(length);
  }
  return statement.isEmpty();
}

}  // namespace vellora
