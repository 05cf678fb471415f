#include "store/translation.h"

#include "store/store_error.h"
#include "store/tokens.h"

#include <QList>

#include <algorithm>

namespace vellora {
namespace {

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

QString engineWord(const Token& token, int* parameters) {
  switch (token.kind) {
    case Token::Kind::Text:
    case Token::Kind::Date:
      return u'?' + QString::number(++*parameters);
    case Token::Kind::Name:
      return quotedName(token.text);
    default:
      return token.text.toString();
  }
}

}  // namespace

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
  QString sql;
  int parameters = 0;
  for (const Token& token : tokens) sql += engineWord(token, &parameters) + u' ';
  if (readsOneTable(tokens)) {
    translation.table = tokens[3].text.toString();
    translation.isWholeTable = !hasWord(tokens, u"WHERE") && !hasWord(tokens, u"LIMIT");
    sql.insert(sql.indexOf(u'*'), u"_rowid_, "_qs);
  }
  translation.sql = sql.toUtf8();
  return translation;
}

}  // namespace vellora
