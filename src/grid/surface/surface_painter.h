#pragma once

#include "grid/sheet/sheet.h"
#include "grid/surface/cell_range.h"
#include "grid/surface/frozen_axis.h"

#include <QSize>

class QPainter;

namespace vellora {

class TextLayouts;
struct GridAppearance;

// Paints a grid's whole viewport: what scrolls, the frozen bands over it, the marked column and
// rows, and the current cell's frame.
struct SurfacePainter {
  const Sheet& sheet;
  const GridAppearance& appearance;
  const FrozenAxis& cols;
  const FrozenAxis& rows;
  TextLayouts& texts;
  QSize size;
  CellRange selected;
  CellPlace current;
  bool hasFocus;

  void paint(QPainter& painter) const;

 private:
  void paintArea(QPainter& painter, const std::vector<Span>& areaCols,
                 const std::vector<Span>& areaRows, const QRect& clip) const;
  void paintNotes(QPainter& painter, const std::vector<Span>& areaCols,
                  const std::vector<Span>& areaRows) const;
  void paintMarkedColumn(QPainter& painter, const std::vector<Span>& areaCols,
                         const QRect& clip) const;
  void paintMarkedRows(QPainter& painter, const std::vector<Span>& areaCols,
                       const std::vector<Span>& areaRows) const;
  void paintFrame(QPainter& painter, const QRect& clip) const;
};

}  // namespace vellora
