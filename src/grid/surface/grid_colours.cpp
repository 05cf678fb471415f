#include "grid/surface/grid_colours.h"

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
  colours.today = palette.color(QPalette::ToolTipBase);
  return colours;
}

}  // namespace vellora
