#pragma once

#include "grid/sheet/cell_place.h"
#include "grid/sheet/cell_style.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>
#include <span>

namespace vellora {

class SheetContent;
enum class CellProperty : std::size_t;

// One page of cells: plain data, no widget. Columns and rows count from 0, column first in every
// call. Reading outside the sheet gives empty texts and default styles, writing outside is dropped,
// counts and sizes out of range are brought into it. Copies share their content until one of them
// changes: a copy is a cheap snapshot. A million rows is normal, and rows without content cost next
// to nothing.
//
// A setting of a whole column (kEveryRow) takes that setting from its cells and holds for later
// rows too, until a cell is set again. Texts and tags of a whole column reach the present rows. The
// heading strip keeps settings of its own; without any it is centred.
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
  // At most kMaxCols and kMaxRows. Fewer drop the cells beyond; SetRows(0) and then a larger count
  // gives empty rows that follow their columns' settings.
  void SetCols(int count);
  void SetRows(int count);

  // Lines of a text are separated by character 13.
  void SetCellText(int col, int row, const QString& text);
  // Texts of a row's first cells at once, which long lists are filled with in half the time.
  void SetRowTexts(int row, std::span<const QString> texts);
  QString GetCellText(int col, int row) const;
  // A key that is never shown; "" when none was stored.
  void SetCellTag(int col, int row, const QString& tag);
  QString CellTag(int col, int row) const;
  // All that a cell of the rows holds, by number; outside of them nothing.
  CellNumbers NumbersAt(int col, int row) const;
  // Shows any value: numbers stay numbers (a text mark on the cell goes), true is 1, dates and
  // times show as the planner writes them, null is empty.
  void SetCellValue(int col, int row, const QVariant& value);
  // The number of a cell whose text is the shortest form of one and that has no text mark; so "001"
  // has none, and a cell set as a number has one.
  std::optional<double> CellNumber(int col, int row) const;
  // Option 1 marks the cell's content as text that is never turned into a number or a date.
  void SetCellOption(int col, int row, int option);
  int CellOption(int col, int row) const;

  void SetCellAlign(int col, int row, int flags);
  void SetCellInput(int col, int row, int mode);
  void SetCellWrap(int col, int row, bool on);
  // 1 + a category's index, or 0 for none.
  void SetCellCategory(int col, int row, int category);
  void SetCellColors(int col, int row, PackedColour text, PackedColour back);
  void SetCellFont(int col, int row, int size, int style, const QString& face);
  void SetDefaultFont(int size, int style, const QString& face);
  // Kind 0: all edges of every cell in the range; a width of 0 takes the border away. Other kinds
  // do nothing.
  void SetRangeBorder(int col1, int row1, int col2, int row2, int kind, int width,
                      PackedColour colour);
  // Valid until this sheet changes or goes.
  const CellStyle& StyleAt(int col, int row) const;
  // Small number that is the same for equal styles of this sheet.
  int StyleNumberAt(int col, int row) const;
  // What was set on the place itself, without defaults; what carries a cell's look elsewhere. Cells
  // with equal numbers have equal settings. Setting replaces all that was set there; of a whole
  // column it replaces the defaults and leaves the cells' own settings.
  CellSettings SettingsAt(int col, int row) const;
  int SettingsNumberAt(int col, int row) const;
  void SetCellSettings(int col, int row, const CellSettings& settings);
  CellFont DefaultFont() const;

  // Sizes in pixels at 100 %; none where only the default applies.
  void SetColumnWidth(int col, int width);
  std::optional<int> ColumnWidth(int col) const;
  void SetRowHeight(int row, int height);
  std::optional<int> RowHeight(int row) const;
  void SetDefaultRowHeight(int height);
  int DefaultRowHeight() const;
  // Rows stay hidden, whatever their index becomes, until they are deleted.
  void HideRow(int row);
  bool IsRowHidden(int row) const;
  // The first row from row on that is not hidden; Rows() or beyond when there is none.
  int NextShownRow(int row) const;

  // The first new row gets the index row; it and those below move down.
  void InsertRows(int row, int count);
  void DeleteRows(int row, int count);

  // The first row from row on that may hold anything of its own; Rows() when all from there are as
  // new. Walks a sheet without visiting long empty stretches.
  int NextWrittenRow(int row) const;
  // Whether a row has nothing of its own: no cell, no height, and it is not hidden.
  bool IsRowEmpty(int row) const;
  // The first row from row on that is hidden or has a height of its own; Rows() when there is none.
  int NextSizedRow(int row) const;

  // Grows with every change. Sheets of one revision hold the same, whichever way they came to it.
  quint64 revision() const;

 private:
  bool has(int col, int row) const;
  bool hasRow(int row) const { return row >= 0 && row < Rows(); }
  SheetContent& change();
  void set(int col, int row, CellProperty property, quint64 word);

  std::shared_ptr<SheetContent> content_;
};

}  // namespace vellora
