#include "store/statement_pieces.h"

#include "routine/calendar_text.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr qsizetype kDateRoom = 2 + 16;  // years beyond four digits included

QChar* writeDigits(QChar* to, int number, int count) {
  for (int i = count; i-- > 0; number /= 10) to[i] = QChar(u'0' + number % 10);
  return to + count;
}

QChar* writeDay(QChar* to, QDate date) {
  int year = 0;
  int month = 0;
  int day = 0;
  date.getDate(&year, &month, &day);
  if (year < 1 || year > 9999) {
    const QString text = isoDate(date).left(kDateRoom - 2);
    return std::copy(text.begin(), text.end(), to);
  }
  to = writeDigits(to, year, 4);
  *to++ = u'-';
  to = writeDigits(to, month, 2);
  *to++ = u'-';
  return writeDigits(to, day, 2);
}

}  // namespace

qsizetype pieceRoom(std::u16string_view words) {
  return static_cast<qsizetype>(words.size());
}

qsizetype pieceRoom(TextLiteral literal) {
  return 2 + 2 * literal.text.size();
}

qsizetype pieceRoom(QDate) {
  return kDateRoom;
}

QChar* writePiece(QChar* to, std::u16string_view words) {
  return std::copy(words.begin(), words.end(), to);
}

QChar* writePiece(QChar* to, TextLiteral literal) {
  *to++ = u'\'';
  for (const QChar character : literal.text) {
    *to++ = character;
    if (character == u'\'') *to++ = character;
  }
  *to++ = u'\'';
  return to;
}

QChar* writePiece(QChar* to, QDate date) {
  *to++ = u'#';
  to = writeDay(to, date);
  *to++ = u'#';
  return to;
}

}  // namespace vellora
