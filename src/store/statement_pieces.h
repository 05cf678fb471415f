#pragma once

#include <QDate>
#include <QString>

#include <string_view>

namespace vellora {

// A value that stands in a statement as a text literal.
struct TextLiteral {
  QStringView text;
};

// The pieces of a statement: its own words, text literals and date literals. Room is the most
// characters that a piece can take; writing gives the place behind the piece.
qsizetype pieceRoom(std::u16string_view words);
qsizetype pieceRoom(TextLiteral literal);
qsizetype pieceRoom(QDate date);
QChar* writePiece(QChar* to, std::u16string_view words);
QChar* writePiece(QChar* to, TextLiteral literal);
QChar* writePiece(QChar* to, QDate date);

// Joins pieces in one allocation: the board builds hundreds of statements at a time.
template <typename... Pieces>
QString joinedPieces(const Pieces&... pieces) {
  QString statement((pieceRoom(pieces) + ...), Qt::Uninitialized);
  QChar* end = statement.data();
  ((end = writePiece(end, pieces)), ...);
  statement.truncate(end - statement.constData());
  return statement;
}

}  // namespace vellora
