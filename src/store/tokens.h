#pragma once

#include <QString>
#include <QStringView>

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

}  // namespace vellora
