#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <optional>

namespace vellora {

// A date, a time of day, or both: what one DATETIME value holds. The part that is missing is
// invalid. Times are whole seconds.
struct Moment {
  QDate date;
  QTime time;
};

// Read what people type: 2007-3-5, 2007/03/05, 2007.3.5, 20070305, 2007年3月5日, 8:30, 08:30:00, a
// date and a time joined by blanks, in full-width characters too, blanks around. The year has four
// digits, the other numbers one or two. None for any other text, for days and times that do not
// exist and for an empty text.
std::optional<Moment> readMoment(QStringView text);
std::optional<QDate> readDate(QStringView text);  // a date alone
std::optional<QTime> readTime(QStringView text);  // a time of day alone

// The one form in which moments are stored: "2007-03-05", "08:30:00", or both joined by a blank.
// Empty when both parts are invalid.
QString storedText(const Moment& moment);

// A day that exists, already in its stored form: the quick way past nearly every date.
std::optional<QDate> readStoredDate(QStringView text);
std::optional<QDate> readStoredDate(QLatin1String text);

}  // namespace vellora
