#include "grid/sheet/sheet_content.h"

#include "grid/sheet/cell_place.h"

#include <algorithm>
#include <utility>

namespace vellora {
namespace {

using Number = StyleTable::Number;

}  // namespace

SheetContent::SheetContent() {
  setDefaultFont(CellFont());
}

void SheetContent::setCols(int count) {
  const auto old = columns_.size();
  if (count < cols()) rows_.keepColumns(count);
  columns_.resize(static_cast<std::size_t>(count));
  for (std::size_t col = old; col < columns_.size(); ++col) {
    setDefaults(columns_[col], StyleTable::kNothingSet);
    setHeading(columns_[col], StyleTable::kNothingSet);
  }
}

// A pool begins anew with the rows: the texts that an emptied list had are not needed again.
void SheetContent::setRows(int count) {
  rows_.resize(count);
  if (count == 0) texts_ = std::make_shared<TextPool>();
}

const QString& SheetContent::text(int col, int row) const {
  if (row == kHeadingRow) return column(col).headingText;
  return texts_->text(row == kEveryRow ? 0 : rows_.cell(col, row).text);
}

const QString& SheetContent::tag(int col, int row) const {
  if (row == kHeadingRow) return column(col).headingTag;
  return texts_->text(row == kEveryRow ? 0 : rows_.cell(col, row).tag);
}

void SheetContent::setText(int col, int row, const QString& text) {
  if (row == kHeadingRow) {
    column(col).headingText = text;
  } else if (row == kEveryRow) {
    for (int r = 0; r < rows(); ++r) setText(col, r, text);
  } else {
    rows_.writableCell(col, row).text = texts_->idOf(text);
  }
}

void SheetContent::setTexts(int row, std::span<const QString> texts) {
  for (int col = 0; const QString& text : texts) {
    const TextPool::Id id = texts_->idOf(text);
    if (id != rows_.cell(col, row).text) rows_.writableCell(col, row).text = id;
    ++col;
  }
}

void SheetContent::setTag(int col, int row, const QString& tag) {
  if (row == kHeadingRow) {
    column(col).headingTag = tag;
  } else if (row == kEveryRow) {
    for (int r = 0; r < rows(); ++r) setTag(col, r, tag);
  } else {
    rows_.writableCell(col, row).tag = texts_->idOf(tag);
  }
}

Number SheetContent::own(int col, int row) const {
  if (row == kHeadingRow) return column(col).heading;
  return row == kEveryRow ? column(col).defaults : rows_.cell(col, row).settings;
}

Number SheetContent::shown(int col, int row) const {
  if (row == kHeadingRow) return column(col).headingShown;
  const Number set = row == kEveryRow ? StyleTable::kNothingSet : own(col, row);
  return placeOf(column(col), set)->shown;
}

void SheetContent::set(int col, int row, CellProperty property, quint64 word) {
  if (row < 0) {
    setOwn(col, row, styles_.with(own(col, row), property, word));
    if (row == kEveryRow) dropFromCells(col, property);
    return;
  }
  Number& style = rows_.writableCell(col, row).settings;
  style = styles_.with(style, property, word);
  admit(column(col), style);
}

void SheetContent::setOwn(int col, int row, Number style) {
  if (row == kHeadingRow) return setHeading(column(col), style);
  if (row == kEveryRow) return setDefaults(column(col), style);
  admit(column(col), style);
  rows_.writableCell(col, row).settings = style;
}

void SheetContent::setBorder(int col, int firstRow, int lastRow, quint64 word) {
  rows_.restyle(col, firstRow, lastRow, [&](Number own) {
    const Number style = styles_.with(own, CellProperty::Border, word);
    admit(column(col), style);
    return style;
  });
}

void SheetContent::setDefaultFont(const CellFont& font) {
  const quint64 word = styles_.fontWord(font);
  base_ = styles_.with(StyleTable::kNothingSet, CellProperty::Font, word);
  headingBase_ = styles_.with(base_, CellProperty::Align, StyleTable::plainWord(kAlignCentred));
  for (Column& column : columns_) {
    setDefaults(column, column.defaults);
    setHeading(column, column.heading);
  }
}

std::vector<SheetContent::Shown>::const_iterator SheetContent::placeOf(const Column& column,
                                                                       Number own) {
  return std::lower_bound(column.shown.begin(), column.shown.end(), own,
                          [](const Shown& entry, Number number) { return entry.own < number; });
}

// Prepares the column for a cell with these settings, so that reading is two look-ups.
void SheetContent::admit(Column& column, Number own) {
  const auto place = placeOf(column, own);
  if (place != column.shown.end() && place->own == own) return;
  const Number shown = styles_.over(styles_.over(own, column.defaults), base_);
  column.shown.insert(place, {own, shown});
  column.cellProperties |= styles_.properties(own);
}

void SheetContent::setDefaults(Column& column, Number defaults) {
  column.defaults = defaults;
  const std::vector<Shown> known = std::exchange(column.shown, {});
  admit(column, StyleTable::kNothingSet);
  for (const Shown& entry : known) admit(column, entry.own);
}

void SheetContent::setHeading(Column& column, Number own) {
  column.heading = own;
  column.headingShown = styles_.over(own, headingBase_);
}

// A setting of the whole column replaces what single cells had.
void SheetContent::dropFromCells(int col, CellProperty property) {
  Column& changed = column(col);
  if ((changed.cellProperties & bitOf(property)) == 0) return;
  rows_.restyle(col, 0, rows() - 1, [&](Number own) {
    const Number style = styles_.without(own, property);
    admit(changed, style);
    return style;
  });
}

}  // namespace vellora
