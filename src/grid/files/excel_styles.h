#pragma once

#include "grid/files/biff_stream.h"
#include "grid/sheet/sheet.h"
#include "routine/colour.h"
#include "routine/work_step.h"

#include <QHash>

#include <array>
#include <cstddef>
#include <vector>

namespace vellora {

// The 56 colours that a binary Excel file holds. It begins as the format's own; a colour that is
// not among them takes the place of one not asked for yet. When all are taken, the nearest stands
// in. Black and white are always there.
class ExcelPalette {
 public:
  static constexpr std::size_t kSize = 56;

  // The number that the format's records know the colour by: 8 to 63.
  unsigned indexOf(PackedColour colour);
  const std::array<PackedColour, kSize>& colours() const { return colours_; }

 private:
  std::array<PackedColour, kSize> colours_ = standardColours();
  std::array<bool, kSize> taken_{true, true};

  static std::array<PackedColour, kSize> standardColours();
  std::size_t nearest(PackedColour colour) const;
};

// Pixels of the grid in the units of a binary Excel file. Its columns are counted in digits of its
// basic font, which at 宋体 12 are eight pixels wide.
constexpr quint16 excelColumnWidth(int pixels) {
  return static_cast<quint16>(pixels < 2'040 ? pixels * 256 / 8 : 255 * 256);
}
constexpr quint16 excelRowHeight(int pixels) {
  return static_cast<quint16>(pixels < 546 ? pixels * 15 : 8'190);
}

// Collects the looks of a sheet's cells as fonts, colours and cell formats of a binary Excel file.
class ExcelStyles {
 public:
  // The number of the format that cells have when nothing is said.
  static constexpr quint16 kPlainFormat = 15;

  explicit ExcelStyles(const Sheet& sheet) : sheet_(sheet) {}

  // Throws FileError for more looks than the format can hold.
  quint16 formatOf(int col, int row);
  // Whether the cell's look shows where it has no text.
  bool showsWhenEmpty(int col, int row) const;

  void writeFonts(BiffStream& stream) const;
  void writeFormats(BiffStream& stream) const;
  void writePalette(BiffStream& stream) const;

 private:
  // Different records of one kind in the order of their first use.
  struct Records {
    QHash<QByteArray, int> numbers;
    QByteArray bytes;
    int numberOf(const QByteArray& record);
  };

  quint16 fontOf(const CellStyle& style);
  QByteArray formatRecord(const CellStyle& style);
  quint16 makeFormat(int col, int row);

  const Sheet& sheet_;
  ExcelPalette palette_;
  Records fonts_;
  Records formats_;
  std::vector<quint16> known_;  // by style number; 0: not asked for yet
};

// The texts of all cells of a binary Excel file. A text is recognised by the number that the sheet
// has for it, which costs far less than comparing.
class SharedStrings {
 public:
  // The number, from 0, of a cell's text that is not empty; at most 65,535 UTF-16 units. A text
  // that the sheet does not number (0) is written each time.
  quint32 numberOf(quint32 sheetNumber, const QString& text);
  // The records SST and, for readers that look up single texts, EXTSST. Throws WorkCancelled.
  void write(BiffStream& stream, const WorkProgress& progress = {}) const;

 private:
  std::vector<quint32> numbers_;  // by that of the sheet, counted from 1; 0: not written yet
  std::vector<QString> texts_;
  quint32 uses_ = 0;
};

}  // namespace vellora
