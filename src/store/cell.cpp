#include "store/cell.h"

#include "routine/number_text.h"
#include "routine/text.h"
#include "store/moment.h"

#include <QDateTime>

#include <algorithm>
#include <limits>

namespace vellora {
namespace {

QString decoded(std::string_view bytes) {
  return textFromUtf8({bytes.data(), static_cast<qsizetype>(bytes.size())});
}

qint64 wholeNumber(double number) {
  constexpr double kLimit = 9.2e18;
  return static_cast<qint64>(std::clamp(roundHalfEven(number), -kLimit, kLimit));
}

QVariant momentValue(const QString& text) {
  const std::optional<Moment> moment = readMoment(text);
  if (!moment) return text;
  if (!moment->time.isValid()) return moment->date;
  if (!moment->date.isValid()) return moment->time;
  return QDateTime(moment->date, moment->time);
}

QVariant storedValue(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::Null:
      return {};
    case Cell::Kind::Integer:
      return cell.integer;
    case Cell::Kind::Real:
      return cell.real;
    case Cell::Kind::Text:
      return decoded(cell.bytes);
    case Cell::Kind::Bytes:
      return QByteArray(cell.bytes.data(), static_cast<qsizetype>(cell.bytes.size()));
  }
  return {};
}

}  // namespace

OwnedCell owned(const Cell& cell) {
  return {cell.kind, cell.integer, cell.real,
          QByteArray(cell.bytes.data(), static_cast<qsizetype>(cell.bytes.size()))};
}

QVariant cellValue(const Cell& cell, ColumnKind kind) {
  if (kind == ColumnKind::DateTime && cell.kind == Cell::Kind::Text) {
    return momentValue(decoded(cell.bytes));
  }
  if (kind == ColumnKind::YesNo && cell.kind == Cell::Kind::Integer) return cell.integer != 0;
  return storedValue(cell);
}

QString cellText(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::Text:
      return decoded(cell.bytes);
    case Cell::Kind::Integer:
      return QString::number(cell.integer);
    case Cell::Kind::Real:
      return numberText(cell.real);
    default:
      return {};
  }
}

QDate cellDate(const Cell& cell) {
  const QLatin1String bytes(cell.bytes.data(), static_cast<qsizetype>(cell.bytes.size()));
  if (const auto date = readStoredDate(bytes)) return *date;
  const std::optional<Moment> moment = readMoment(cellText(cell));
  return moment ? moment->date : QDate();
}

QTime cellTime(const Cell& cell) {
  const std::optional<Moment> moment = readMoment(cellText(cell));
  return moment ? moment->time : QTime();
}

qint64 cellNumber(const Cell& cell) {
  if (cell.kind == Cell::Kind::Integer) return cell.integer;
  return wholeNumber(cell.kind == Cell::Kind::Real ? cell.real : numericValue(cellText(cell)));
}

}  // namespace vellora
