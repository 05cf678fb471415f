#pragma once

#include "grid/sheet/sheet.h"
#include "store/schedule_store.h"
#include "store/store_error.h"

#include <span>

namespace vellora {

enum class CellContent { Time, Date, Text };

struct TableColumn {
  const char16_t* name;  // in the table
  const char16_t* heading;
  int width;  // pixels at 100 %
  CellContent content;
};

// A table that is edited whole in one grid, a grid column for each of its columns.
struct WholeTable {
  std::span<const TableColumn> columns;
  QString (*rowsInOrder)();  // statements
  QString (*allRows)();
  QString (*deleteRows)();

  const TableColumn& column(int col) const { return columns[static_cast<std::size_t>(col)]; }
};

// A cell whose text cannot be stored. The description names its row, counted from 1, and heading.
class CellRefused : public StoreError {
 public:
  CellRefused(StoreFault fault, int col, int row, const QString& description);

  int col() const { return col_; }
  int row() const { return row_; }

 private:
  int col_;
  int row_;
};

// Columns, headings, sizes and alignment; the rows start empty.
void setUpSheet(Sheet& sheet, const WholeTable& table, int rows);

// Replaces the sheet's rows by the table's, in order, and adds empty rows up to `leastRows`, at
// least `spareRows` of them. A date or time that cannot be read is shown as it is stored. The sheet
// stays as it was when the table cannot be read. Returns the number of the table's rows.
int loadTable(ScheduleStore& store, Sheet& sheet, const WholeTable& table, int leastRows,
              int spareRows);

// Replaces the table by the sheet's complete rows, those without an empty cell, in their order.
// Throws CellRefused for the first cell that cannot be stored, StoreError otherwise; the table then
// stays as it was.
void saveTable(ScheduleStore& store, const Sheet& sheet, const WholeTable& table);

// The date in a cell. Throws CellRefused when there is none.
QDate dateInCell(const Sheet& sheet, int col, int row);

}  // namespace vellora
