#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QStringView>

// The planner's SQL dialect: SELECT and DELETE * FROM, #-delimited dates, texts between single
// quotes with a quote doubled, names in brackets, Hour and Minute, nested INNER JOIN, names without
// regard to case. Inside a literal every character stands for itself. A "?" is the place of a value
// that comes with the statement.

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

// What a text literal means: its inside with doubled quotes single.
QString unquoted(QStringView inside);

// A statement of the dialect in the engine's own words.
struct Translation {
  QByteArray sql;  // UTF-8; its parameters are the places and then the literals, in their order
  int placeCount = 0;
  QByteArrayList literals;  // what they mean: UTF-8, dates in their stored form
  // The table of a SELECT * from one table, whose rows can be changed; empty for other statements.
  // The rows of such a set begin with a column more, their row number.
  QString table;
  bool isWholeTable = false;  // no row of the table is left out
};

// Only SELECT, DELETE, INSERT and UPDATE are part of the dialect; StoreFault::Syntax for anything
// else, NotADateOrTime for a date literal that is no date or time.
Translation translated(QStringView statement);

// A name as the engine quotes it.
QString quotedName(QStringView name);

}  // namespace vellora
