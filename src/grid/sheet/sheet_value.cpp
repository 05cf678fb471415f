#include "grid/sheet/sheet.h"
#include "routine/calendar_text.h"
#include "routine/number_text.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

bool isNumber(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
      return true;
    default:
      return false;
  }
}

QString dateAndTime(const QDateTime& moment) {
  if (!moment.isValid()) return {};
  return isoDate(moment.date()) + u' ' + shortTime(moment.time());
}

QString shownText(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::Bool:
      return numberText(value.toBool() ? 1 : 0);
    case QMetaType::Float:
    case QMetaType::Double:
      return numberText(value.toDouble());
    case QMetaType::QDate:
      return isoDate(value.toDate());
    case QMetaType::QTime:
      return shortTime(value.toTime());
    case QMetaType::QDateTime:
      return dateAndTime(value.toDateTime());
    default:
      return value.toString();
  }
}

// Asking the converter about every date, time, code and count costs more than all else in writing a
// list to a file, so these two answer first.
bool maybeNumber(QStringView text) {
  return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar unit) {
    return (unit >= u'0' && unit <= u'9') || unit == u'-' || unit == u'.';
  });
}

std::optional<double> smallCount(QStringView text) {
  constexpr qsizetype kMostDigits = 9;
  if (text.size() > kMostDigits || (text.size() > 1 && text[0] == u'0')) return std::nullopt;
  int count = 0;
  for (const QChar unit : text) {
    if (unit < u'0') return std::nullopt;
    count = 10 * count + (unit.unicode() - u'0');
  }
  return count;
}

}  // namespace

void Sheet::SetCellValue(int col, int row, const QVariant& value) {
  SetCellText(col, row, shownText(value));
  if (isNumber(value) && CellOption(col, row) != 0) SetCellOption(col, row, 0);
}

std::optional<double> Sheet::CellNumber(int col, int row) const {
  const QString text = GetCellText(col, row);
  if (!maybeNumber(text) || CellOption(col, row) == 1) return std::nullopt;
  if (const std::optional<double> count = smallCount(text)) return count;
  bool isRead = false;
  const double number = text.toDouble(&isRead);
  if (!isRead || !std::isfinite(number) || numberText(number) != text) return std::nullopt;
  return number;
}

}  // namespace vellora
