#pragma once

#include "grid/surface/frozen_axis.h"

#include <QPoint>

class QWidget;

namespace vellora {

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
