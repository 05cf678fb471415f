#include "grid/surface/grid_appearance.h"

#include "grid/print/drawn_style.h"

namespace vellora {

GridColours coloursOf(const QPalette& palette) {
  GridColours colours;
  colours.text = palette.color(QPalette::Text);
  colours.paper = palette.color(QPalette::Base);
  colours.headingText = palette.color(QPalette::ButtonText);
  colours.headingPaper = palette.color(QPalette::Button);
  colours.line = palette.color(QPalette::Mid);
  colours.current = palette.color(QPalette::Highlight);
  colours.selectionText = palette.color(QPalette::HighlightedText);
  colours.selectionPaper = palette.color(QPalette::Highlight);
  colours.faint = palette.color(QPalette::PlaceholderText);
  colours.today = palette.color(QPalette::ToolTipBase);
  return colours;
}

TextColours textColours(const CellStyle& style, const GridColours& colours, bool isHeading) {
  if (style.hasColours) return {colourOf(style.textColour), colourOf(style.backColour)};
  if (isHeading) return {colours.headingText, colours.headingPaper};
  return {colours.text, colours.paper};
}

}  // namespace vellora
