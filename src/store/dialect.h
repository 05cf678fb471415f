#pragma once

#include <QDate>
#include <QString>

// The planner's SQL dialect: SELECT and DELETE * FROM, #-delimited dates, texts between single
// quotes with a quote doubled, names in brackets, Hour and Minute, nested INNER JOIN, names without
// regard to case. Inside a literal every character stands for itself.
namespace vellora {

// '001'. A quote in the text is doubled, so that a name or code can never change a statement.
QString textLiteral(QStringView text);

// #2007-03-05#. An invalid date gives ##, which every statement refuses.
QString dateLiteral(QDate date);

}  // namespace vellora
