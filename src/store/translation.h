#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace vellora {

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

}  // namespace vellora
