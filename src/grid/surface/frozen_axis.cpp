#include "grid/surface/frozen_axis.h"

namespace vellora {
namespace {

constexpr int kReach = 3;  // pixels on either side of an edge
constexpr int kLeastSize = 8;

}  // namespace

int FrozenAxis::band() const {
  const int count = frozen();
  if (count == 0) return 0;
  return header_.sectionPosition(count - 1) + header_.sectionSize(count - 1);
}

Span FrozenAxis::spanOf(int section) const {
  const int offset = isFrozen(section) ? 0 : header_.offset();
  return {section, header_.sectionPosition(section) - offset, header_.sectionSize(section)};
}

int FrozenAxis::sectionAt(int pixel) const {
  if (pixel < 0) return -1;
  const int position = pixel < band() ? pixel : pixel + header_.offset();
  return header_.visualIndexAt(position - header_.offset());
}

int FrozenAxis::edgeNear(int pixel, int reach) const {
  for (const int probe : {pixel - reach, pixel + reach}) {
    const int section = sectionAt(std::max(probe, 0));
    if (section >= 0 && std::abs(spanOf(section).end() - pixel) <= reach) return section;
  }
  return -1;
}

std::vector<Span> FrozenAxis::frozenSpans(int extent) const {
  return spans(0, frozen() - 1, extent);
}

std::vector<Span> FrozenAxis::scrolledSpans(int extent) const {
  if (header_.count() == 0 || band() >= extent) return {};
  const int first = header_.visualIndexAt(band());
  return first < 0 ? std::vector<Span>()
                   : spans(std::max(first, frozen()), header_.count() - 1, extent);
}

std::vector<Span> FrozenAxis::spans(int first, int last, int extent) const {
  std::vector<Span> result;
  for (int section = first; section <= last; ++section) {
    const Span span = spanOf(section);
    if (span.start >= extent) break;
    if (span.size > 0) result.push_back(span);
  }
  return result;
}

int FrozenAxis::offsetShowing(int section, int extent) const {
  const Span span = spanOf(section);
  if (isFrozen(section)) return header_.offset();
  if (span.start < band()) return header_.offset() + span.start - band();
  if (span.end() <= extent) return header_.offset();
  const int step = std::min(span.end() - extent, span.start - band());
  return header_.offset() + step;
}

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
