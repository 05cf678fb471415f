#include "store/find_condition.h"

#include "routine/number_text.h"
#include "store/dialect.h"
#include "store/moment.h"
#include "store/store_error.h"

namespace vellora {
namespace {

StoreError notACondition() {
  return {StoreFault::Syntax, u"查找条件只能是“列=值”，多个条件用 AND 连接。"_qs};
}

QString momentText(QStringView text) {
  if (const std::optional<Moment> moment = readMoment(text)) return storedText(*moment);
  throw StoreError(StoreFault::NotADateOrTime, u"查找条件中的“%1”不是日期或时间。"_qs.arg(text));
}

QString literalText(const Token& token) {
  switch (token.kind) {
    case Token::Kind::Text:
      return unquoted(token.text);
    case Token::Kind::Date:
      return momentText(token.text);
    case Token::Kind::Number:
      return numberText(numericValue(token.text));
    default:
      throw notACondition();
  }
}

// What a column shall equal, as it would store it; a place takes the query's next value.
QByteArray wantedText(const Token& token, const Query& query, qsizetype& place) {
  if (token.isSymbol(u"?") && place < query.valueCount()) return query.value(place++);
  return literalText(token).toUtf8();
}

// A column's name, with its table's name before it or without.
QStringView columnName(TokenReader& reader) {
  Token name = reader.next();
  for (;;) {
    if (name.kind != Token::Kind::Word && name.kind != Token::Kind::Name) throw notACondition();
    const Token mark = reader.next();
    if (mark.isSymbol(u"=")) return name.text;
    if (!mark.isSymbol(u".")) throw notACondition();
    name = reader.next();
  }
}

bool isText(const Cell& cell, const QByteArray& text) {
  if (cell.kind == Cell::Kind::Null) return false;
  if (cell.kind != Cell::Kind::Text) return cellText(cell).toUtf8() == text;
  return cell.bytes == std::string_view(text.constData(), static_cast<std::size_t>(text.size()));
}

}  // namespace

FindCondition::FindCondition(const Query& condition, const QList<Column>& columns) {
  TokenReader reader(condition.text());
  qsizetype place = 0;
  for (;;) {
    const QStringView name = columnName(reader);
    equalities_.append(
        {columnPosition(columns, name), wantedText(reader.next(), condition, place)});
    const Token joint = reader.next();
    if (joint.kind == Token::Kind::End) return;
    if (!joint.isWord(u"AND")) throw notACondition();
  }
}

bool FindCondition::isMetBy(const StoredRow& row) const {
  for (const Equality& equality : equalities_) {
    if (!isText(row.cells[equality.column].view(), equality.text)) return false;
  }
  return true;
}

}  // namespace vellora
