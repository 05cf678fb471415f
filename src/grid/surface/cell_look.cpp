#include "grid/surface/cell_look.h"

#include "grid/print/drawn_style.h"

namespace vellora {

InkAndPaper inkAndPaper(const CellStyle& style, const GridColours& colours, bool isHeading,
                        bool isEmpty) {
  const bool isBlank = isEmpty && style.textColour == kBlack && style.backColour == kWhite;
  if (style.hasColours && !isBlank) return {colourOf(style.textColour), colourOf(style.backColour)};
  if (isHeading && !style.hasColours) return {colours.headingText, colours.headingPaper};
  return {colours.text, colours.paper};
}

}  // namespace vellora
