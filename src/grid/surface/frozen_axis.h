#pragma once

#include <QHeaderView>
#include <QPoint>

#include <vector>

namespace vellora {

// One row or column as it lies in the viewport.
struct Span {
  int section;
  int start;  // pixels in the viewport
  int size;   // pixels, its grid line included
  int end() const { return start + size; }
};

// Where the sections of one header lie in the viewport when the first few stay in view and the rest
// scrolls beneath them. Pixels count from the viewport's left or top.
class FrozenAxis {
 public:
  explicit FrozenAxis(const QHeaderView& header) : header_(header) {}

  void setFrozen(int count) { frozen_ = std::max(count, 0); }
  int frozen() const { return std::min(frozen_, header_.count()); }
  // Room that the frozen sections take.
  int band() const;
  bool has(int section) const { return section >= 0 && section < header_.count(); }
  bool isFrozen(int section) const { return section < frozen(); }
  Span spanOf(int section) const;
  // −1 where there is no section.
  int sectionAt(int pixel) const;
  // Section whose far edge is within reach of the pixel, for dragging its size; −1 for none.
  int edgeNear(int pixel, int reach) const;
  std::vector<Span> frozenSpans(int extent) const;
  std::vector<Span> scrolledSpans(int extent) const;
  // The scroll offset nearest to the present one that shows the section whole.
  int offsetShowing(int section, int extent) const;

 private:
  std::vector<Span> spans(int first, int last, int extent) const;

  const QHeaderView& header_;
  int frozen_ = 0;
};

// Lets the user drag the edges of columns within the frozen heading row, and of rows within the
// frozen heading column, where the heading strips are hidden. Resizes the sections of the headers.
class EdgeDrag {
 public:
  EdgeDrag(QHeaderView& colHeader, QHeaderView& rowHeader, const FrozenAxis& cols,
           const FrozenAxis& rows)
      : colHeader_(colHeader), rowHeader_(rowHeader), cols_(cols), rows_(rows) {}

  struct Edge {
    QHeaderView* header = nullptr;
    int section = -1;
    explicit operator bool() const { return header != nullptr; }
  };
  Edge edgeAt(QPoint point) const;
  Qt::CursorShape cursorAt(QPoint point) const;
  // True when an edge is there and follows the mouse from now on.
  bool begin(QPoint point);
  bool isActive() const { return static_cast<bool>(edge_); }
  void move(QPoint point);
  void end() { edge_ = {}; }

 private:
  QHeaderView& colHeader_;
  QHeaderView& rowHeader_;
  const FrozenAxis& cols_;
  const FrozenAxis& rows_;
  int pixelOf(QPoint point) const;
  Span spanOf(const Edge& edge) const;

  Edge edge_;
  int grip_ = 0;  // from the mouse to the edge
};

}  // namespace vellora
