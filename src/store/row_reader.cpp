#include "store/row_reader.h"

#include "store/cell.h"
#include "store/column.h"

namespace vellora {

Cell RowReader::cellNamed(QStringView name) {
  return cell(columnPosition(columns(), name));
}

Cell RowReader::cellAt(int position) {
  columnAt(columns(), position);
  return cell(position);
}

QVariant RowReader::value(QStringView name) {
  return value(static_cast<int>(columnPosition(columns(), name)));
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

ColumnKind RowReader::columnKind(int position) const {
  return columnAt(columns(), position).kind;
}

}  // namespace vellora
