#pragma once

#include <QDate>
#include <QString>

#include <ostream>

// Lets a failed comparison print what it compared. Included by every test that compares texts.
inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QDate& date, std::ostream* out) {
  *out << date.toString(Qt::ISODate).toStdString();
}
