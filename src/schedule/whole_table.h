#pragma once

#include "grid/sheet/sheet.h"
#include "routine/changes.h"
#include "store/schedule_store.h"
#include "store/store_error.h"

#include <QStringList>

#include <functional>
#include <span>
#include <vector>

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
  Query (*rowsInOrder)();
  Query (*allRows)();
  Query (*deleteRows)();

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

// Rows of a table as a grid shows them. A date or time that cannot be read stands as it is stored.
using TableRows = std::vector<QStringList>;

// Replaces the sheet's rows by the table's, in order, and adds empty rows up to `leastRows`, at
// least `spareRows` of them. The sheet stays as it was when the table cannot be read. Returns the
// table's rows.
TableRows loadTable(ScheduleStore& store, Sheet& sheet, const WholeTable& table, int leastRows,
                    int spareRows);

// Replaces the table by the sheet's complete rows, those without an empty cell, in their order, and
// returns them. Throws CellRefused for the first cell that cannot be stored, StoreFault::RowChanged
// when the table does not hold `asRead` any more, unless that is null, StoreError otherwise; the
// table then stays as it was. `also` is done in the same transaction.
TableRows saveTable(ScheduleStore& store, const Sheet& sheet, const WholeTable& table,
                    const TableRows* asRead, const std::function<void()>& also = {});

// What a save would do to the stored rows. Their order does not count, nor does a row for which
// `isNothing`.
Changes tableChanges(const Sheet& sheet, const WholeTable& table, const TableRows& stored,
                     const std::function<bool(int row)>& isNothing = {});

// The date in a cell. Throws CellRefused when there is none.
QDate dateInCell(const Sheet& sheet, int col, int row);

}  // namespace vellora
