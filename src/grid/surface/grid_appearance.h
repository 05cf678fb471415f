#pragma once

#include "grid/sheet/cell_style.h"

#include <QColor>
#include <QPalette>
#include <QString>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

namespace vellora {

// Colours of a grid that do not belong to single cells; a skin hands them over.
struct GridColours {
  QColor text;         // of cells without colours of their own
  QColor paper;        // likewise their background
  QColor headingText;  // heading strip, row numbers, frozen headings without colours
  QColor headingPaper;
  QColor line;
  QColor current;  // frame of the current cell
  QColor selectionText;
  QColor selectionPaper;
  QColor today;                 // marks a column; see GridSurface::markColumn
  QColor faint{112, 112, 112};  // of texts that hardly matter
};

// What a grid looks like before a skin speaks.
GridColours coloursOf(const QPalette& palette);

// A row that is set apart, and what for.
struct RowMark {
  int row = 0;
  QString meaning;
  friend bool operator==(const RowMark&, const RowMark&) = default;
};

// Colours and headings that the parts of one grid share.
struct GridAppearance {
  GridColours colours;
  int frozenCols = 0;
  int frozenRows = 0;
  int markedCol = -1;
  int faintZeros = -1;                  // column
  std::vector<RowMark> markedRows;      // ascending
  std::map<int, QString> headingNotes;  // of the first row, by column
  bool isEditable = false;
  std::set<int> lockedCols;

  // Whether the user may change the cell.
  bool isOpen(int col, int row) const {
    return isEditable && !isHeading(col, row) && !lockedCols.contains(col);
  }
  bool isHeading(int col, int row) const { return col < frozenCols || row < frozenRows; }
  QString noteAt(int col, int row) const {
    const auto note = headingNotes.find(col);
    return row == 0 && note != headingNotes.end() ? note->second : QString();
  }
  // Null for a row without one.
  const RowMark* markOf(int row) const {
    const auto mark = std::lower_bound(markedRows.begin(), markedRows.end(), row,
                                       [](const RowMark& a, int b) { return a.row < b; });
    return mark != markedRows.end() && mark->row == row ? &*mark : nullptr;
  }
};

struct TextColours {
  QColor foreground;
  QColor background;
};

// Colours that a cell was given stand in every skin, for they tell a category.
TextColours textColours(const CellStyle& style, const GridColours& colours, bool isHeading);

}  // namespace vellora
