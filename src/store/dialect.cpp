#include "store/dialect.h"

#include "routine/calendar_text.h"

namespace vellora {

QString textLiteral(QStringView text) {
  QString literal;
  literal.reserve(text.size() + 2);
  appendTextLiteral(literal, text);
  return literal;
}

QString dateLiteral(QDate date) {
  return u'#' + isoDate(date) + u'#';
}

void appendTextLiteral(QString& statement, QStringView text) {
  statement += u'\'';
  for (qsizetype quote = text.indexOf(u'\''); quote >= 0; quote = text.indexOf(u'\'')) {
    statement += text.first(quote + 1);
    statement += u'\'';
    text = text.sliced(quote + 1);
  }
  statement += text;
  statement += u'\'';
}

void appendDateLiteral(QString& statement, QDate date) {
  statement += u'#';
  statement += isoDate(date);
  statement += u'#';
}

}  // namespace vellora
