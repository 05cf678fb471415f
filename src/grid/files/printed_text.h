#pragma once

#include "grid/files/page_layout.h"
#include "grid/sheet/cell_style.h"

#include <QTextLayout>

class QPaintDevice;
class QPainter;

namespace vellora {

// A cell's text wrapped to a width of paper, character by character where a word does not fit.
// Lengths are in the device's pixels.
class PrintedText {
 public:
  PrintedText(const QString& text, const CellStyle& style, double width, QPaintDevice* device);

  // The lines by pages with this much room; one run when they all fit.
  std::vector<LineRun> runs(double room) const;
  void draw(QPainter& painter, const LineRun& run, QPointF topLeft) const;

 private:
  QTextLayout layout_;
};

}  // namespace vellora
