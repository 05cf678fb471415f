#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace vellora {

// What repeats on every page: the heading strip of a list, or row 0 of the board.
enum class PrintHeadings { HeadingStrip, FirstRow };

// How a sheet is printed besides its cells.
struct PrintOptions {
  PrintOptions(PrintHeadings which) : headings(which) {}  // NOLINT: they are options enough

  PrintHeadings headings;
  QString title;  // on top of every page; none when empty
  QString note;   // at the title's right
  // One page to hang up, if that can hold all: letters of 9 to 14 points, as large as fit, rows
  // that fill the page, and the legend of the categories.
  bool isForTheWall = false;
};

// Which rows and columns go on which page of paper: plain calculation, in any one unit of length.
// Nothing is ever left out. Every page takes at least one column and one piece of a row, also where
// that is larger than the room.

// Neighbouring columns that share a page; first and count are positions in the list given.
struct ColumnSpan {
  std::size_t first;
  std::size_t count;
  friend bool operator==(const ColumnSpan&, const ColumnSpan&) = default;
};

// A row higher than a page goes on over several; all pieces but the last fill one page each.
struct PrintedRow {
  int row;
  int pieces;
  double height;  // of the last piece
};

struct RowPiece {
  int row;
  int piece;
  double height;
  friend bool operator==(const RowPiece&, const RowPiece&) = default;
};

// Neighbouring lines of a text that share a page.
struct LineRun {
  int first;
  int count;
  double height;
  friend bool operator==(const LineRun&, const LineRun&) = default;
};

// Columns without a width of their own share what the others leave, each at least the least width.
std::vector<double> sharedWidths(const std::vector<std::optional<double>>& own, double room,
                                 double least);

// How much smaller than life to print, at most 1: all columns on one page if they must, else only
// as small as can be read with ease.
double printScale(double width, double room, bool mustFit);

std::vector<ColumnSpan> spanColumns(const std::vector<double>& widths, double room);

// One run for each page that the lines need; at least one, which may be without lines.
std::vector<LineRun> flowLines(const std::vector<double>& lineHeights, double room);

// For each page the pieces of rows on it, from top to bottom; at least one page. A row of several
// pieces begins on a page of its own.
std::vector<std::vector<RowPiece>> layOutRows(const std::vector<PrintedRow>& rows, double room);

}  // namespace vellora
