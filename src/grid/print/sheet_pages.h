#pragma once

#include "grid/print/page_layout.h"
#include "grid/sheet/sheet.h"
#include "routine/work_step.h"

#include <QPen>
#include <QTextLayout>

#include <memory>

class QPaintDevice;
class QPainter;

namespace vellora {

// A cell's text wrapped to a width of paper, character by character where a word does not fit.
// Lengths are in the device's pixels.
class PrintedText {
 public:
  // The font is drawn `scale` times as large as the style says.
  PrintedText(const QString& text, const CellStyle& style, double width, double scale,
              QPaintDevice* device);

  // The lines by pages with this much room; one run when they all fit.
  std::vector<LineRun> runs(double room) const;
  // With an edge around the letters where its pen has a colour.
  void draw(QPainter& painter, const LineRun& run, QPointF topLeft, const QPen& edge) const;

 private:
  QTextLayout layout_;
};

// A sheet measured for the paper of one device: which part of it goes on which page. Lengths are in
// device pixels before scale() is applied.
class SheetPages {
 public:
  struct Column {
    int col;
    double width;
  };

  // Measuring takes far longer than drawing. Throws WorkCancelled.
  SheetPages(const Sheet& sheet, const PrintOptions& options, bool mustFit, QPaintDevice& device,
             const WorkProgress& progress);

  double scale() const { return scale_; }
  // Kept free for the title, before scale() is applied.
  double titleHeight() const { return titleHeight_; }
  // Where the text of a cell begins, from its left edge.
  double textLeft(const CellStyle& style) const;
  // Device pixels for a length on the screen at 100 %.
  double pixels(double screenPixels) const;
  const std::vector<Column>& columns() const { return columns_; }
  // Each page of rows is printed once for each span of columns.
  const std::vector<ColumnSpan>& spans() const { return spans_; }
  const std::vector<std::vector<RowPiece>>& pages() const { return pages_; }
  // The row on top of every page; its height is 0 when there are no headings.
  const RowPiece& heading() const { return heading_; }

  double cellRoom() const;  // for the text of a cell, from padding to padding
  QPointF padding() const;
  // Null for a cell without one.
  std::unique_ptr<PrintedText> text(int row, const Column& column) const;

 private:
  void measureColumns(bool mustFit);
  void measure(const WorkProgress& progress);
  void measureForTheWall(const WorkProgress& progress);
  void fillPage();
  void measureHeading();
  void measureRows(const WorkProgress& progress);
  PrintedRow measured(int row) const;
  bool hasText(int row) const;
  int lastRowWithText() const;

  const Sheet& sheet_;
  QPaintDevice& device_;
  double scale_ = 1;
  double titleHeight_;
  bool isForTheWall_ = false;
  double fontScale_ = 1;
  double pageHeight_ = 0;  // between title and footer
  double roomWidth_ = 0;
  double roomHeight_ = 0;  // for the rows below the heading
  RowPiece heading_;
  std::vector<Column> columns_;
  std::vector<ColumnSpan> spans_;
  std::vector<std::vector<RowPiece>> pages_;
};

// Kept free at the lower end of every page, in pixels at 100 %.
inline constexpr double kFooterHeight = 24;
inline constexpr double kTitleHeight = 40;
// The width of a category's stripe.
inline constexpr double kPrintedStripe = 5;

}  // namespace vellora
