#pragma once

#include "grid/sheet/row_blocks.h"
#include "grid/sheet/text_pool.h"

#include <span>

namespace vellora {

// What a sheet is made of; Sheet shares it between copies and guards its bounds. Every place here
// is one that exists: 0 <= col < columns, and a row of the sheet, kHeadingRow or kEveryRow.
class SheetContent {
 public:
  SheetContent();

  int cols() const { return static_cast<int>(columns_.size()); }
  int rows() const { return rows_.count(); }
  void setCols(int count);
  void setRows(int count);
  RowBlocks& blocks() { return rows_; }
  const RowBlocks& blocks() const { return rows_; }

  // Valid until the content changes.
  const QString& text(int col, int row) const;
  const QString& tag(int col, int row) const;
  void setText(int col, int row, const QString& text);
  void setTexts(int row, std::span<const QString> texts);  // of the first columns; not of headings
  void setTag(int col, int row, const QString& tag);

  // Numbers of what was set on the place itself, and of what it looks like with the defaults below.
  StyleTable::Number own(int col, int row) const;
  StyleTable::Number shown(int col, int row) const;
  StyleTable::Number shownOutside() const { return base_; }
  StyleTable& styles() { return styles_; }
  const StyleTable& styles() const { return styles_; }

  void set(int col, int row, CellProperty property, quint64 word);
  // Replaces everything that was set on the place. Of a column it replaces the defaults only.
  void setOwn(int col, int row, StyleTable::Number style);
  void setBorder(int col, int firstRow, int lastRow, quint64 word);
  void setDefaultFont(const CellFont& font);
  CellFont defaultFont() const { return styles_.style(base_).font; }

  std::optional<int> width(int col) const { return column(col).width; }
  void setWidth(int col, int width) { column(col).width = width; }

  int defaultRowHeight = 24;
  quint64 revision = 0;

 private:
  // What a cell with these settings looks like in its column.
  struct Shown {
    StyleTable::Number own;
    StyleTable::Number shown;
  };
  struct Column {
    std::optional<int> width;
    QString headingText;
    QString headingTag;
    StyleTable::Number heading = StyleTable::kNothingSet;
    StyleTable::Number headingShown = StyleTable::kNothingSet;
    StyleTable::Number defaults = StyleTable::kNothingSet;
    quint32 cellProperties = 0;  // set on at least one cell, or were once
    std::vector<Shown> shown;    // ordered by own, for the cells' settings and for none
  };

  Column& column(int col) { return columns_[static_cast<std::size_t>(col)]; }
  const Column& column(int col) const { return columns_[static_cast<std::size_t>(col)]; }
  static std::vector<Shown>::const_iterator placeOf(const Column& column, StyleTable::Number own);
  void admit(Column& column, StyleTable::Number own);
  void setDefaults(Column& column, StyleTable::Number defaults);
  void setHeading(Column& column, StyleTable::Number own);
  void dropFromCells(int col, CellProperty property);

  std::vector<Column> columns_;
  RowBlocks rows_;
  std::shared_ptr<TextPool> texts_ = std::make_shared<TextPool>();
  StyleTable styles_;
  StyleTable::Number base_;
  StyleTable::Number headingBase_;
};

}  // namespace vellora
