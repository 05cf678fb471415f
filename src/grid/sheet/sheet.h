#pragma once

#include "grid/sheet/cell_style.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace vellora {

// Row −1 is the heading strip above row 0; row −2 means every row of a column at once, now and
// when rows are added later.
inline constexpr int kHeadingRow = -1;
inline constexpr int kEveryRow = -2;

// One page of cells: plain data, no widget. Columns and rows count from 0, column first in every
// call. Reading outside the sheet gives empty texts and default styles, writing outside is dropped.
// Copies share their content until one of them changes. A million rows is normal.
class Sheet {
 public:
  Sheet();
  Sheet(const Sheet&);
  Sheet(Sheet&&) noexcept;
  Sheet& operator=(const Sheet&);
  Sheet& operator=(Sheet&&) noexcept;
  ~Sheet();

  int Cols() const;
  int Rows() const;
  // Fewer rows drop the cells beyond; SetRows(0) and then a larger count gives empty rows.
  void SetCols(int count);
  void SetRows(int count);

  // Lines of a text are separated by character 13.
  void SetCellText(int col, int row, const QString& text);
  QString GetCellText(int col, int row) const;
  // A key that is never shown; "" when none was stored.
  void SetCellTag(int col, int row, const QString& tag);
  QString CellTag(int col, int row) const;
  // Shows any value: numbers stay numbers, dates and times show as the planner writes them.
  void SetCellValue(int col, int row, const QVariant& value);
  // The number of a cell that was set as a number, or whose text is the shortest form of one and
  // that has no text mark.
  std::optional<double> CellNumber(int col, int row) const;
  // Option 1 marks the cell's content as text that is never turned into a number or a date.
  void SetCellOption(int col, int row, int option);
  int CellOption(int col, int row) const;

  void SetCellAlign(int col, int row, int flags);
  void SetCellInput(int col, int row, int mode);
  void SetCellWrap(int col, int row, bool on);
  void SetCellColors(int col, int row, PackedColour text, PackedColour back);
  void SetCellFont(int col, int row, int size, int style, const QString& face);
  void SetDefaultFont(int size, int style, const QString& face);
  void SetRangeBorder(int col1, int row1, int col2, int row2, int kind, int width,
                      PackedColour colour);
  const CellStyle& StyleAt(int col, int row) const;
  // Small number that is the same for equal styles of this sheet.
  int StyleNumberAt(int col, int row) const;

  // Sizes in pixels at 100 %; none where only the default applies.
  void SetColumnWidth(int col, int width);
  std::optional<int> ColumnWidth(int col) const;
  void SetRowHeight(int row, int height);
  std::optional<int> RowHeight(int row) const;
  void SetDefaultRowHeight(int height);
  int DefaultRowHeight() const;
  void HideRow(int row);
  bool IsRowHidden(int row) const;

  // The first new row gets the index row; it and those below move down.
  void InsertRows(int row, int count);
  void DeleteRows(int row, int count);

  // Grows with every change.
  quint64 revision() const;

 private:
  class Cells;
  std::shared_ptr<Cells> cells_;
};

}  // namespace vellora
