#include "store/dialect.h"

#include "store/column.h"
#include "store/moment.h"
#include "store/store_error.h"

#include <QList>

#include <algorithm>

namespace vellora {
namespace {

bool isWordStart(QChar character) {
  return character.isLetter() || character == u'_' || character.isSurrogate();
}

bool isWordPart(QChar character) {
  return isWordStart(character) || character.isNumber();
}

bool isDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

template <typename Predicate>
qsizetype runEnd(QStringView text, qsizetype from, Predicate belongs) {
  while (from < text.size() && belongs(text[from])) ++from;
  return from;
}

qsizetype symbolLength(QStringView text) {
  if (text.startsWith(u"<=") || text.startsWith(u">=") || text.startsWith(u"<>")) return 2;
  return QStringView(u"*,.()=<>+-/;?").contains(text.front()) ? 1 : 0;
}

StoreError unclosed(QStringView text, qsizetype at) {
  return {StoreFault::Syntax, u"语句中“%1”之后缺少结束的符号。"_qs.arg(text.sliced(at, 1))};
}

using Tokens = QList<Token>;

Tokens tokensOf(QStringView statement) {
  TokenReader reader(statement);
  Tokens tokens;
  for (Token token = reader.next(); token.kind != Token::Kind::End; token = reader.next()) {
    tokens.append(token);
  }
  if (!tokens.isEmpty() && tokens.last().isSymbol(u";")) tokens.removeLast();
  return tokens;
}

bool hasWord(const Tokens& tokens, QStringView word) {
  return std::any_of(tokens.begin(), tokens.end(),
                     [word](const Token& token) { return token.isWord(word); });
}

void requireDialect(const Tokens& tokens) {
  const bool isKnown =
      !tokens.isEmpty() && (tokens[0].isWord(u"SELECT") || tokens[0].isWord(u"DELETE") ||
                            tokens[0].isWord(u"INSERT") || tokens[0].isWord(u"UPDATE"));
  const bool isOne = std::none_of(tokens.begin(), tokens.end(),
                                  [](const Token& token) { return token.isSymbol(u";"); });
  if (isKnown && isOne) return;
  throw StoreError(StoreFault::Syntax, u"只能执行一条查询、删除、新增或修改语句。"_qs);
}

bool isTableName(const Token& token) {
  return token.kind == Token::Kind::Word || token.kind == Token::Kind::Name;
}

// SELECT * FROM name, then nothing, WHERE or ORDER.
bool readsOneTable(const Tokens& tokens) {
  if (tokens.size() < 4 || !tokens[0].isWord(u"SELECT") || !tokens[1].isSymbol(u"*") ||
      !tokens[2].isWord(u"FROM") || !isTableName(tokens[3])) {
    return false;
  }
  const bool endsWell =
      tokens.size() == 4 || tokens[4].isWord(u"WHERE") || tokens[4].isWord(u"ORDER");
  return endsWell && !hasWord(tokens, u"UNION") && !hasWord(tokens, u"EXCEPT") &&
         !hasWord(tokens, u"INTERSECT");
}

// Position after the quote that closes a text literal whose inside begins at `from`; -1 without
// one. A doubled quote is part of the literal.
qsizetype textLiteralEnd(QStringView text, qsizetype from) {
  for (;;) {
    const qsizetype quote = text.indexOf(u'\'', from);
    if (quote < 0) return -1;
    if (quote + 1 == text.size() || text[quote + 1] != u'\'') return quote + 1;
    from = quote + 2;
  }
}

QString storedMoment(QStringView text) {
  if (const std::optional<Moment> moment = readMoment(text)) return storedText(*moment);
  throw StoreError(StoreFault::NotADateOrTime,
                   u"语句中的“%1”不是日期或时间。"_qs.arg(text.left(30)));
}

bool isPlace(const Token& token) {
  return token.isSymbol(u"?");
}

// Puts the tokens of a translation into the engine's words, one after the other.
class EngineWords {
 public:
  explicit EngineWords(Translation& translation) : translation_(translation) {}

  QString next(const Token& token) {
    switch (token.kind) {
      case Token::Kind::Text:
        return literal(unquoted(token.text));
      case Token::Kind::Date:
        return literal(storedMoment(token.text));
      case Token::Kind::Name:
        return quotedName(token.text);
      default:
        return isPlace(token) ? parameter(++place_) : token.text.toString();
    }
  }

 private:
  static QString parameter(qsizetype index) { return u'?' + QString::number(index); }
  QString literal(const QString& meaning) {
    translation_.literals.append(meaning.toUtf8());
    return parameter(translation_.placeCount + translation_.literals.size());
  }

  Translation& translation_;
  int place_ = 0;
};

}  // namespace

bool Token::isWord(QStringView word) const {
  return kind == Kind::Word && isSameName(text, word);
}

bool Token::isSymbol(QStringView symbol) const {
  return kind == Kind::Symbol && text == symbol;
}

QStringView TokenReader::take(qsizetype count) {
  const QStringView taken = text_.sliced(at_, count);
  at_ += count;
  return taken;
}

Token TokenReader::delimited(Token::Kind kind, QChar end) {
  const qsizetype close = text_.indexOf(end, at_ + 1);
  if (close < 0) throw unclosed(text_, at_);
  const QStringView inside = text_.sliced(at_ + 1, close - at_ - 1);
  at_ = close + 1;
  return {kind, inside};
}

Token TokenReader::textLiteral() {
  const qsizetype end = textLiteralEnd(text_, at_ + 1);
  if (end < 0) throw unclosed(text_, at_);
  const QStringView inside = text_.sliced(at_ + 1, end - at_ - 2);
  at_ = end;
  return {Token::Kind::Text, inside};
}

Token TokenReader::next() {
  at_ = runEnd(text_, at_, [](QChar c) { return c.isSpace(); });
  if (at_ == text_.size()) return {};
  const QChar first = text_[at_];
  if (first == u'\'') return textLiteral();
  if (first == u'#') return delimited(Token::Kind::Date, u'#');
  if (first == u'[') return delimited(Token::Kind::Name, u']');
  if (isWordStart(first)) return {Token::Kind::Word, take(runEnd(text_, at_, isWordPart) - at_)};
  if (isDigit(first)) {
    const auto belongs = [](QChar c) { return isDigit(c) || c == u'.'; };
    return {Token::Kind::Number, take(runEnd(text_, at_, belongs) - at_)};
  }
  if (const qsizetype length = symbolLength(text_.sliced(at_))) {
    return {Token::Kind::Symbol, take(length)};
  }
  throw StoreError(StoreFault::Syntax, u"语句中不能有“%1”。"_qs.arg(first));
}

QString unquoted(QStringView inside) {
  return inside.toString().replace(u"''"_qs, u"'"_qs);
}

QString quotedName(QStringView name) {
  return u'"' + name.toString().replace(u"\""_qs, u"\"\""_qs) + u'"';
}

Translation translated(QStringView statement) {
  Tokens tokens = tokensOf(statement);
  requireDialect(tokens);
  if (tokens.size() > 1 && tokens[0].isWord(u"DELETE") && tokens[1].isSymbol(u"*")) {
    tokens.removeAt(1);
  }
  Translation translation;
  translation.placeCount = static_cast<int>(std::count_if(tokens.begin(), tokens.end(), isPlace));
  EngineWords words(translation);
  QString sql;
  for (const Token& token : tokens) sql += words.next(token) + u' ';
  if (readsOneTable(tokens)) {
    translation.table = tokens[3].text.toString();
    translation.isWholeTable = !hasWord(tokens, u"WHERE") && !hasWord(tokens, u"LIMIT");
    sql.insert(sql.indexOf(u'*'), u"_rowid_, "_qs);
  }
  translation.sql = sql.toUtf8();
  return translation;
}

}  // namespace vellora
