#include "grid/surface/cell_look.h"

#include "grid/files/installed_face.h"

namespace vellora {

QColor colourOf(PackedColour colour) {
  return {redOf(colour), greenOf(colour), blueOf(colour)};
}

QFont fontOf(const CellFont& font) {
  QFont result(installedFace(font.face));
  result.setPointSize(std::max(font.size, 1));
  result.setBold(font.style == kFontBold);
  return result;
}

Qt::Alignment alignmentOf(int flags) {
  Qt::Alignment horizontal = Qt::AlignLeft;
  if ((flags & kAlignCentre) != 0) horizontal = Qt::AlignHCenter;
  if ((flags & kAlignRight) != 0) horizontal = Qt::AlignRight;
  Qt::Alignment vertical = Qt::AlignVCenter;
  if ((flags & kAlignTop) != 0) vertical = Qt::AlignTop;
  if ((flags & kAlignBottom) != 0) vertical = Qt::AlignBottom;
  return horizontal | vertical;
}

InkAndPaper inkAndPaper(const CellStyle& style, const GridColours& colours, bool isHeading) {
  const bool isPlain = style.textColour == kBlack && style.backColour == kWhite;
  if (style.hasColours && !isPlain) return {colourOf(style.textColour), colourOf(style.backColour)};
  if (isHeading && !style.hasColours) return {colours.headingText, colours.headingPaper};
  return {colours.text, colours.paper};
}

}  // namespace vellora
