#include "routine/calendar_text.h"

#include <array>

namespace vellora {
namespace {

// Writes the lowest digits of a number that is not negative, padded with zeros on the left.
void writeDigits(QChar* end, int number, int count) {
  for (int i = 0; i < count; ++i, number /= 10) *--end = QChar(u'0' + number % 10);
}

}  // namespace

// Written by hand because a board fill formats a date for every cell.
QString isoDate(QDate date) {
  int year = 0;
  int month = 0;
  int day = 0;
  date.getDate(&year, &month, &day);
  if (!date.isValid() || year < 0 || year > 9999) return date.toString(Qt::ISODate);
  QString text(10, u'-');
  writeDigits(text.data() + 4, year, 4);
  writeDigits(text.data() + 7, month, 2);
  writeDigits(text.data() + 10, day, 2);
  return text;
}

QString longDate(QDate date) {
  return date.toString(u"yyyy年M月d日"_qs);
}

QString monthAndDay(QDate date) {
  return date.toString(u"MM月dd日"_qs);
}

QString weekdayName(QDate date) {
  static const std::array<QString, 7> kNames{u"星期一"_qs, u"星期二"_qs, u"星期三"_qs, u"星期四"_qs,
                                             u"星期五"_qs, u"星期六"_qs, u"星期日"_qs};
  if (!date.isValid()) return {};
  return kNames[static_cast<std::size_t>(date.dayOfWeek() - 1)];
}

QString shortTime(QTime time) {
  if (!time.isValid()) return {};
  QString text(5, u':');
  writeDigits(text.data() + 2, time.hour(), 2);
  writeDigits(text.data() + 5, time.minute(), 2);
  return text;
}

QString blockHours(QTime start, QTime end) {
  return shortTime(start) + u'-' + shortTime(end);
}

int blockMinutes(QTime start, QTime end) {
  return end.hour() * 60 + end.minute() - start.hour() * 60 - start.minute();
}

}  // namespace vellora
