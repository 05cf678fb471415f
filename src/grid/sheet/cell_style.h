#pragma once

#include "routine/colour.h"

#include <QString>

#include <optional>

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

inline bool isBold(const CellFont& font) {
  return (font.style & kFontBold) != 0;
}

// How a cell looks and takes input. Equal styles are stored once (see style_table.h).
struct CellStyle {
  CellFont font;
  PackedColour textColour = kBlack;
  PackedColour backColour = kWhite;
  bool hasColours = false;  // false: the skin's own text and background
  int align = kAlignLeftMiddle;
  bool wrap = false;
  int inputMode = 0;
  int option = 0;  // 1: the content stays text
  bool border = false;
  int borderWidth = 1;  // pixels
  PackedColour borderColour = kBlack;
  int category = 0;  // 1 + its index, shown as a stripe at the left edge; 0: none
  friend bool operator==(const CellStyle&, const CellStyle&) = default;
};

struct CellColours {
  PackedColour text = kBlack;
  PackedColour back = kWhite;
  friend bool operator==(const CellColours&, const CellColours&) = default;
};

struct CellBorder {
  int width = 1;  // pixels; 0: no border
  PackedColour colour = kBlack;
  friend bool operator==(const CellBorder&, const CellBorder&) = default;
};

// What was set on one cell, heading or column itself. What is absent follows the defaults below it:
// a cell its column, a column and a heading their sheet.
struct CellSettings {
  std::optional<CellFont> font;
  std::optional<CellColours> colours;
  std::optional<CellBorder> border;
  std::optional<int> align;
  std::optional<int> inputMode;
  std::optional<int> option;
  std::optional<bool> wrap;
  std::optional<int> category;
  friend bool operator==(const CellSettings&, const CellSettings&) = default;
};

// What a cell holds as small numbers, by which a writer tells cells apart: equal texts and tags of
// a sheet have equal numbers, and so have equal settings. 0 is none.
struct CellNumbers {
  quint32 text = 0;
  quint32 tag = 0;
  quint32 settings = 0;

  friend bool operator==(const CellNumbers&, const CellNumbers&) = default;
};

}  // namespace vellora
