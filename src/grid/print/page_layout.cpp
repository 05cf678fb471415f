#include "grid/print/page_layout.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr double kLeastScale = 0.6;

}  // namespace

std::vector<double> sharedWidths(const std::vector<std::optional<double>>& own, double room,
                                 double least) {
  double taken = 0;
  int sharers = 0;
  for (const auto& width : own) {
    taken += width.value_or(0);
    sharers += width ? 0 : 1;
  }
  const double share = sharers == 0 ? 0 : std::max(least, (room - taken) / sharers);
  std::vector<double> widths;
  widths.reserve(own.size());
  for (const auto& width : own) widths.push_back(width.value_or(share));
  return widths;
}

double printScale(double width, double room, bool mustFit) {
  if (width <= room) return 1;
  return mustFit ? room / width : std::max(kLeastScale, room / width);
}

std::vector<ColumnSpan> spanColumns(const std::vector<double>& widths, double room) {
  std::vector<ColumnSpan> spans;
  double left = 0;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (spans.empty() || widths[i] > left) {
      spans.push_back({i, 0});
      left = room;
    }
    ++spans.back().count;
    left -= widths[i];
  }
  return spans;
}

std::vector<LineRun> flowLines(const std::vector<double>& lineHeights, double room) {
  std::vector<LineRun> runs{{0, 0, 0}};
  for (std::size_t i = 0; i < lineHeights.size(); ++i) {
    if (runs.back().count > 0 && runs.back().height + lineHeights[i] > room) {
      runs.push_back({static_cast<int>(i), 0, 0});
    }
    ++runs.back().count;
    runs.back().height += lineHeights[i];
  }
  return runs;
}

std::vector<std::vector<RowPiece>> layOutRows(const std::vector<PrintedRow>& rows, double room) {
  std::vector<std::vector<RowPiece>> pages(1);
  double left = room;
  for (const PrintedRow& row : rows) {
    for (int piece = 0; piece < row.pieces; ++piece) {
      const double height = piece + 1 < row.pieces ? room : row.height;
      if (height > left && !pages.back().empty()) {
        pages.emplace_back();
        left = room;
      }
      pages.back().push_back({row.row, piece, height});
      left -= height;
    }
  }
  return pages;
}

}  // namespace vellora
