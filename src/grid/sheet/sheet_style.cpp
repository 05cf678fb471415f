#include "grid/sheet/sheet.h"
#include "grid/sheet/sheet_content.h"

#include <algorithm>

namespace vellora {

void Sheet::SetCellOption(int col, int row, int option) {
  set(col, row, CellProperty::Option, StyleTable::plainWord(option));
}

int Sheet::CellOption(int col, int row) const {
  return StyleAt(col, row).option;
}

void Sheet::SetCellAlign(int col, int row, int flags) {
  set(col, row, CellProperty::Align, StyleTable::plainWord(flags));
}

void Sheet::SetCellInput(int col, int row, int mode) {
  set(col, row, CellProperty::Input, StyleTable::plainWord(mode));
}

void Sheet::SetCellWrap(int col, int row, bool on) {
  set(col, row, CellProperty::Wrap, on ? 1 : 0);
}

void Sheet::SetCellColors(int col, int row, PackedColour text, PackedColour back) {
  set(col, row, CellProperty::Colours, StyleTable::coloursWord({text, back}));
}

void Sheet::SetCellFont(int col, int row, int size, int style, const QString& face) {
  if (!has(col, row)) return;
  SheetContent& content = change();
  content.set(col, row, CellProperty::Font, content.styles().fontWord({face, size, style}));
}

void Sheet::SetDefaultFont(int size, int style, const QString& face) {
  if (const CellFont font{face, size, style}; font != DefaultFont()) change().setDefaultFont(font);
}

CellFont Sheet::DefaultFont() const {
  return content_->defaultFont();
}

void Sheet::SetRangeBorder(int col1, int row1, int col2, int row2, int kind, int width,
                           PackedColour colour) {
  const int firstRow = std::max(row1, 0);
  const int lastRow = std::min(row2, Rows() - 1);
  if (kind != 0 || firstRow > lastRow) return;
  const quint64 word = StyleTable::borderWord({width, colour});
  for (int col = std::max(col1, 0); col <= std::min(col2, Cols() - 1); ++col) {
    change().setBorder(col, firstRow, lastRow, word);
  }
}

const CellStyle& Sheet::StyleAt(int col, int row) const {
  return content_->styles().look(static_cast<StyleTable::Number>(StyleNumberAt(col, row)));
}

int Sheet::StyleNumberAt(int col, int row) const {
  return static_cast<int>(has(col, row) ? content_->shown(col, row) : content_->shownOutside());
}

CellSettings Sheet::SettingsAt(int col, int row) const {
  return content_->styles().settings(static_cast<StyleTable::Number>(SettingsNumberAt(col, row)));
}

int Sheet::SettingsNumberAt(int col, int row) const {
  return static_cast<int>(has(col, row) ? content_->own(col, row) : StyleTable::kNothingSet);
}

void Sheet::SetCellSettings(int col, int row, const CellSettings& settings) {
  if (!has(col, row)) return;
  SheetContent& content = change();
  content.setOwn(col, row, content.styles().numberOf(settings));
}

}  // namespace vellora
