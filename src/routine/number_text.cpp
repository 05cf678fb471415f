#include "routine/number_text.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vellora {
namespace {

bool isWide(QChar character) {
  return character >= u'！' && character <= u'～';
}

bool isDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

qsizetype digitsEnd(QStringView text, qsizetype from) {
  while (from < text.size() && isDigit(text[from])) ++from;
  return from;
}

}  // namespace

QString narrowed(QStringView text) {
  QString narrow = text.toString();
  for (QChar& character : narrow) {
    if (isWide(character)) {
      character = QChar(static_cast<char16_t>(character.unicode() - u'！' + u'!'));
    }
  }
  return narrow;
}

double numericValue(QStringView text) {
  if (std::any_of(text.begin(), text.end(), isWide)) return numericValue(narrowed(text));
  qsizetype end = digitsEnd(text, 0);
  if (end == 0) return 0;
  if (end < text.size() && text[end] == u'.') end = digitsEnd(text, end + 1);
  return std::min(QLocale::c().toDouble(text.first(end)), std::numeric_limits<double>::max());
}

QString numberText(double number) {
  if (number == 0) return u"0"_qs;
  return QString::number(number, 'f', QLocale::FloatingPointShortest);
}

double roundHalfEven(double number) {
  const double below = std::floor(number);
  const double part = number - below;
  if (part != 0.5) return std::round(number);
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

}  // namespace vellora
