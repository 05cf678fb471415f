#include "grid/surface/edge_drag.h"

namespace vellora {
namespace {

constexpr int kReach = 3;  // pixels on either side of an edge
constexpr int kLeastSize = 8;

}  // namespace

EdgeDrag::Edge EdgeDrag::edgeAt(QPoint point) const {
  if (colHeader_.isHidden() && point.y() < rows_.band()) {
    const int col = cols_.edgeNear(point.x(), kReach);
    if (col >= 0) return {&colHeader_, col};
  }
  if (rowHeader_.isHidden() && point.x() < cols_.band()) {
    const int row = rows_.edgeNear(point.y(), kReach);
    if (row >= 0) return {&rowHeader_, row};
  }
  return {};
}

Qt::CursorShape EdgeDrag::cursorAt(QPoint point) const {
  const Edge edge = isActive() ? edge_ : edgeAt(point);
  if (!edge) return Qt::ArrowCursor;
  return edge.header == &colHeader_ ? Qt::SplitHCursor : Qt::SplitVCursor;
}

bool EdgeDrag::begin(QPoint point) {
  edge_ = edgeAt(point);
  if (isActive()) grip_ = spanOf(edge_).end() - pixelOf(point);
  return isActive();
}

void EdgeDrag::move(QPoint point) {
  const int size = pixelOf(point) + grip_ - spanOf(edge_).start;
  edge_.header->resizeSection(edge_.section, std::max(size, kLeastSize));
}

int EdgeDrag::pixelOf(QPoint point) const {
  return edge_.header == &colHeader_ ? point.x() : point.y();
}

Span EdgeDrag::spanOf(const Edge& edge) const {
  return (edge.header == &colHeader_ ? cols_ : rows_).spanOf(edge.section);
}

}  // namespace vellora
