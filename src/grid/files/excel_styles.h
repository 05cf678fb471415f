#pragma once

#include "grid/files/biff_stream.h"
#include "grid/files/excel_palette.h"
#include "grid/sheet/sheet.h"

#include <QHash>

#include <vector>

namespace vellora {

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

}  // namespace vellora
