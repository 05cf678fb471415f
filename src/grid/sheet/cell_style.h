#pragma once

#include "routine/colour.h"

#include <QString>

namespace vellora {

// Sums of these place a cell's text; 36 is centred both ways, 33 left and centred vertically.
enum CellAlign : int {
  kAlignLeft = 1,
  kAlignRight = 2,
  kAlignCentre = 4,
  kAlignTop = 8,
  kAlignBottom = 16,
  kAlignMiddle = 32,
};
inline constexpr int kAlignCentred = kAlignCentre + kAlignMiddle;
inline constexpr int kAlignLeftMiddle = kAlignLeft + kAlignMiddle;

inline constexpr int kFontRegular = 0;
inline constexpr int kFontBold = 1;

struct CellFont {
  QString face = u"宋体"_qs;
  int size = 8;  // points
  int style = kFontRegular;
  friend bool operator==(const CellFont&, const CellFont&) = default;
};

// How a cell looks and takes input. Equal styles are stored once (see StyleTable in sheet.h).
struct CellStyle {
  CellFont font;
  PackedColour textColour = kBlack;
  PackedColour backColour = kWhite;
  bool hasColours = false;  // false: the skin's own text and background
  int align = kAlignLeftMiddle;
  bool wrap = false;
  int inputMode = 0;
  bool border = false;
  int borderWidth = 1;  // pixels
  PackedColour borderColour = kBlack;
  friend bool operator==(const CellStyle&, const CellStyle&) = default;
};

}  // namespace vellora
