#include "store/column.h"

#include "routine/number_text.h"
#include "routine/text.h"
#include "store/moment.h"
#include "store/store_error.h"

#include <QDateTime>
#include <QLocale>

#include <array>
#include <cmath>
#include <limits>

namespace vellora {
namespace {

struct DeclaredKind {
  const char16_t* type;
  ColumnKind kind;
};

constexpr std::array kDeclaredKinds{
    DeclaredKind{u"BOOLEAN", ColumnKind::YesNo}, DeclaredKind{u"SMALLINT", ColumnKind::Int16},
    DeclaredKind{u"INTEGER", ColumnKind::Int32}, DeclaredKind{u"DATETIME", ColumnKind::DateTime},
    DeclaredKind{u"VARCHAR", ColumnKind::Text},  DeclaredKind{u"LONGTEXT", ColumnKind::LongText},
};

StoreError refusal(StoreFault fault, const Column& column, const QString& reason) {
  return {fault, u"“%1”%2。"_qs.arg(column.shownName, reason)};
}

OwnedCell integerCell(qint64 number) {
  return {Cell::Kind::Integer, number, 0, {}};
}

OwnedCell textCell(const QString& text) {
  return {Cell::Kind::Text, 0, 0, text.toUtf8()};
}

double numberOf(const Column& column, const QVariant& value) {
  bool isNumber = false;
  const double number = value.userType() == QMetaType::QString
                            ? QLocale::c().toDouble(narrowed(value.toString().trimmed()), &isNumber)
                            : value.toDouble(&isNumber);
  if (isNumber && std::isfinite(number)) return number;
  throw refusal(StoreFault::NotANumber, column,
                u"只能存数，%1不是数"_qs.arg(quoted(value.toString())));
}

template <typename Integer>
OwnedCell numberCell(const Column& column, const QVariant& value) {
  constexpr double kLeast = std::numeric_limits<Integer>::min();
  constexpr double kMost = std::numeric_limits<Integer>::max();
  const double number = roundHalfEven(numberOf(column, value));
  if (number >= kLeast && number <= kMost) return integerCell(static_cast<qint64>(number));
  throw refusal(StoreFault::NumberOutOfRange, column,
                u"只能存 %1 到 %2 的数，%3 超出了范围"_qs.arg(numberText(kLeast), numberText(kMost),
                                                              shortened(numberText(number))));
}

std::optional<Moment> momentOf(const QVariant& value) {
  switch (value.userType()) {
    case QMetaType::QDate:
      return Moment{value.toDate(), {}};
    case QMetaType::QTime:
      return Moment{{}, value.toTime()};
    case QMetaType::QDateTime:
      return Moment{value.toDateTime().date(), value.toDateTime().time()};
    default:
      return readMoment(value.toString());
  }
}

OwnedCell momentCell(const Column& column, const QVariant& value) {
  const std::optional<Moment> moment = momentOf(value);
  const QString text = moment ? storedText(*moment) : QString();
  if (!text.isEmpty()) return textCell(text);
  const QString typed = value.toString();
  throw refusal(StoreFault::NotADateOrTime, column,
                typed.isEmpty() ? u"要填日期或时间，不能是空的"_qs
                                : u"要填日期或时间，%1不是"_qs.arg(quoted(typed)));
}

QString textOf(const QVariant& value) {
  switch (value.userType()) {
    case QMetaType::Double:
      return numberText(value.toDouble());
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
      return storedText(*momentOf(value));
    default:
      return value.toString();
  }
}

qsizetype characterCount(const QString& text) {
  qsizetype count = text.size();
  for (qsizetype i = 1; i < text.size(); ++i) {
    if (text[i].isLowSurrogate() && text[i - 1].isHighSurrogate()) --count;
  }
  return count;
}

bool isShortEnough(const Column& column, const QString& text) {
  const qsizetype most = column.mostCharacters;
  return most < 0 || text.size() <= most || characterCount(text) <= most;
}

OwnedCell limitedTextCell(const Column& column, const QVariant& value) {
  const QString text = textOf(value);
  if (isShortEnough(column, text)) return textCell(text);
  throw refusal(
      StoreFault::TextTooLong, column,
      u"最多存 %1 个字，这里有 %2 个字"_qs.arg(column.mostCharacters).arg(characterCount(text)));
}

OwnedCell anyCell(const QVariant& value) {
  switch (value.userType()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
      return integerCell(value.toLongLong());
    case QMetaType::Double:
      return {Cell::Kind::Real, 0, value.toDouble(), {}};
    case QMetaType::QByteArray:
      return {Cell::Kind::Bytes, 0, 0, value.toByteArray()};
    default:
      return textCell(textOf(value));
  }
}

char16_t folded(QChar letter) {
  const char16_t code = letter.unicode();
  return code >= u'a' && code <= u'z' ? static_cast<char16_t>(code - u'a' + u'A') : code;
}

}  // namespace

Column describedColumn(const QString& name, const QString& declaredType, const QString& shownName) {
  const QString type = declaredType.section(u'(', 0, 0).trimmed();
  for (const DeclaredKind& declared : kDeclaredKinds) {
    if (!isSameName(type, declared.type)) continue;
    bool isLimited = false;
    const int most = declaredType.section(u'(', 1).section(u')', 0, 0).toInt(&isLimited);
    return {name, declared.kind, isLimited ? most : -1, shownName};
  }
  return {name, ColumnKind::Other, -1, shownName};
}

bool isSameName(QStringView one, QStringView other) {
  if (one.size() != other.size()) return false;
  for (qsizetype i = 0; i < one.size(); ++i) {
    if (one[i] != other[i] && folded(one[i]) != folded(other[i])) return false;
  }
  return true;
}

qsizetype columnPosition(const QList<Column>& columns, QStringView name) {
  for (qsizetype i = 0; i < columns.size(); ++i) {
    if (isSameName(columns[i].name, name)) return i;
  }
  throw StoreError(StoreFault::ColumnMissing, u"没有名为“%1”的列。"_qs.arg(name));
}

const Column& columnAt(const QList<Column>& columns, int position) {
  if (position >= 0 && position < columns.size()) return columns[position];
  throw StoreError(StoreFault::ColumnMissing, u"没有第 %1 列。"_qs.arg(position + 1));
}

OwnedCell columnCell(const Column& column, const QVariant& value) {
  if (!value.isValid() || value.isNull()) return {};
  switch (column.kind) {
    case ColumnKind::YesNo:
      return integerCell(numberOf(column, value) != 0 ? 1 : 0);
    case ColumnKind::Int16:
      return numberCell<qint16>(column, value);
    case ColumnKind::Int32:
      return numberCell<qint32>(column, value);
    case ColumnKind::DateTime:
      return momentCell(column, value);
    case ColumnKind::Text:
    case ColumnKind::LongText:
      return limitedTextCell(column, value);
    case ColumnKind::Other:
      return anyCell(value);
  }
  return {};
}

bool canHold(const Column& column, const QString& text) {
  if (column.kind == ColumnKind::Text || column.kind == ColumnKind::LongText) {
    return isShortEnough(column, text);
  }
  try {
    columnCell(column, text);
    return true;
  } catch (const StoreError&) {
    return false;
  }
}

}  // namespace vellora
