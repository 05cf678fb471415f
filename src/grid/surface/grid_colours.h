#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

#include <algorithm>
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
  QColor today;  // marks a column; see GridSurface::markColumn
};

// What a grid looks like before a skin speaks.
GridColours coloursOf(const QPalette& palette);

// Colours and headings that the parts of one grid share.
struct GridLook {
  GridColours colours;
  int frozenCols = 0;
  int frozenRows = 0;
  int markedCol = -1;
  std::vector<int> markedRows;  // ascending
  QString markMeaning;
  bool isEditable = false;

  bool isHeading(int col, int row) const { return col < frozenCols || row < frozenRows; }
  bool isMarkedRow(int row) const {
    return std::binary_search(markedRows.begin(), markedRows.end(), row);
  }
};

}  // namespace vellora
