#pragma once

#include "grid/sheet/sheet.h"
#include "grid/surface/cell_range.h"
#include "grid/surface/frozen_axis.h"
#include "grid/surface/text_layouts.h"

#include <QRect>

#include <unordered_map>
#include <vector>

class QPainter;

namespace vellora {

struct GridLook;

// Where a cell's text lies within its rectangle, grid line included.
QRect textRoom(const QRect& cell);

// How one cell's text is asked of the layouts.
TextLayouts::Request textRequest(TextLayouts& texts, const CellStyle& style, const QString& text,
                                 const QRect& cell);

// Paints cells of one sheet during one paint event: papers, texts, grid lines and borders.
class CellPainter {
 public:
  CellPainter(QPainter& painter, const Sheet& sheet, const GridLook& look, TextLayouts& texts)
      : painter_(painter), sheet_(sheet), look_(look), texts_(texts) {}

  // These cells show in the selection's colours, all but the current one.
  void setSelection(const CellRange& selected, CellPlace current);
  // Every cell where these columns and rows cross.
  void paint(const std::vector<Span>& cols, const std::vector<Span>& rows);

 private:
  // What cells of one style share.
  struct Look {
    QColor ink;
    QColor paper;
    const CellStyle* style;
    int font;
    Qt::Alignment align;
  };
  struct Bordered {
    QRect cell;
    const CellStyle* style;
  };

  const Look& lookAt(int col, int row, bool isEmpty);
  void paintCell(const Span& col, const Span& row);
  void paintText(const QString& text, const Look& look, const QRect& cell);
  void paintLines(const std::vector<Span>& cols, const std::vector<Span>& rows);
  void paintBorder(const Bordered& bordered);
  bool isInverted(CellPlace cell) const;
  bool isMarkedHeading(CellPlace cell) const;

  QPainter& painter_;
  const Sheet& sheet_;
  const GridLook& look_;
  TextLayouts& texts_;
  CellRange selected_;
  CellPlace current_;
  std::unordered_map<int, Look> looks_;
  std::vector<Bordered> bordered_;
};

}  // namespace vellora
