#include "store/row_reader.h"

#include "store/cell.h"
#include "store/column.h"

namespace vellora {

Cell RowReader::cellNamed(QStringView name) {
  return cell(columnNamed(name));
}

Cell RowReader::cellAt(int position) {
  columnAt(columns(), position);
  return cell(position);
}

QVariant RowReader::value(QStringView name) {
  return value(columnNamed(name));
}

QVariant RowReader::value(int position) {
  return cellValue(cellAt(position), columnKind(position));
}

QString RowReader::text(QStringView name) {
  return cellText(cellNamed(name));
}

QString RowReader::text(int position) {
  return cellText(cellAt(position));
}

QDate RowReader::date(QStringView name) {
  return cellDate(cellNamed(name));
}

QDate RowReader::date(int position) {
  return cellDate(cellAt(position));
}

QTime RowReader::time(QStringView name) {
  return cellTime(cellNamed(name));
}

qint64 RowReader::number(QStringView name) {
  return cellNumber(cellNamed(name));
}

qint64 RowReader::number(int position) {
  return cellNumber(cellAt(position));
}

int RowReader::columnCount() const {
  return static_cast<int>(columns().size());
}

QString RowReader::columnName(int position) const {
  return columnAt(columns(), position).name;
}

QString RowReader::shownName(int position) const {
  return columnAt(columns(), position).shownName;
}

ColumnKind RowReader::columnKind(int position) const {
  return columnAt(columns(), position).kind;
}

int RowReader::columnNamed(QStringView name) const {
  return static_cast<int>(columnPosition(columns(), name));
}

bool RowReader::canHold(int position, const QString& text) const {
  return vellora::canHold(columnAt(columns(), position), text);
}

}  // namespace vellora
