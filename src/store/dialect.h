#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringView>

// The planner's SQL dialect: SELECT and DELETE * FROM, #-delimited dates, texts between single
// quotes with a quote doubled, names in brackets, Hour and Minute, nested INNER JOIN, names without
// regard to case. Inside a literal every character stands for itself.

namespace vellora {

// One piece of a statement or a condition in the planner's dialect.
struct Token {
  enum class Kind { Word, Name, Number, Text, Date, Symbol, End };

  Kind kind = Kind::End;
  // As written; of a Name without its brackets, of a Text or a Date what stands between the marks,
  // doubled quotes and all.
  QStringView text;

  bool isWord(QStringView word) const;
  bool isSymbol(QStringView symbol) const;
};

// Cuts a text into tokens; every literal is one token whatever it holds. The text must outlive the
// tokens.
class TokenReader {
 public:
  explicit TokenReader(QStringView text) : text_(text) {}

  // Throws StoreFault::Syntax for a literal or bracket without an end and for a character that is
  // not part of the dialect.
  Token next();

 private:
  QStringView take(qsizetype count);
  Token delimited(Token::Kind kind, QChar end);
  Token textLiteral();

  QStringView text_;
  qsizetype at_ = 0;
};

// Position after the quote that closes a text literal whose inside begins at `from`; -1 without
// one. A doubled quote is part of the literal.
qsizetype textLiteralEnd(QStringView text, qsizetype from);

// What a text literal means: its inside with doubled quotes single.
QString unquoted(QStringView inside);

// A statement of the dialect in the engine's own words.
struct Translation {
  QByteArray sql;  // UTF-8; literals are the parameters ?1, ?2, ... in their order
  // The table of a SELECT * from one table, whose rows can be changed; empty for other statements.
  // The rows of such a set begin with a column more, their row number.
  QString table;
  bool isWholeTable = false;  // no row of the table is left out
};

// Translates a statement or its shape. Only SELECT, DELETE, INSERT and UPDATE are part of the
// dialect; StoreFault::Syntax for anything else.
Translation translated(QStringView statement);

// A name as the engine quotes it.
QString quotedName(QStringView name);

// '001'. A quote in the text is doubled, so that a name or code can never change a statement.
QString textLiteral(QStringView text);

// #2007-03-05#. An invalid date gives ##, which every statement refuses.
QString dateLiteral(QDate date);

}  // namespace vellora
