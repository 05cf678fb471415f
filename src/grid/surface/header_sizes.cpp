#include "grid/surface/header_sizes.h"

#include "grid/print/drawn_style.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>

namespace vellora {
namespace {

constexpr int kDefaultWidth = 80;
constexpr int kLeastSharedWidth = 56;
constexpr int kRowMargin = 3;  // pixels: grid line and a little air

// What one line needs of the largest font that the sheet or one of its columns asks for.
int lowestRow(const Sheet& sheet, qreal scale) {
  std::vector<CellFont> fonts{sheet.DefaultFont()};
  for (int col = 0; col < sheet.Cols(); ++col) {
    const CellFont& font = sheet.StyleAt(col, kEveryRow).font;
    if (font != fonts.back()) fonts.push_back(font);
  }
  int highest = 0;
  for (const CellFont& font : fonts) {
    highest = std::max(highest, QFontMetrics(plainFont(fontOf(font, scale))).height());
  }
  return highest + kRowMargin;
}

}  // namespace

HeaderSizes::HeaderSizes(QTableView& view) : view_(view) {
  view.horizontalHeader()->setDefaultSectionSize(kDefaultWidth);
  listen(view.horizontalHeader(), &HeaderSizes::columnDragged);
  listen(view.verticalHeader(), &HeaderSizes::rowDragged);
}

void HeaderSizes::listen(QHeaderView* header, void (HeaderSizes::*dragged)(int, int)) {
  header->setMinimumSectionSize(1);
  connect(header, &QHeaderView::sectionResized, this,
          [this, header, dragged](int section, int, int size) {
            if (!isApplying_ && !header->isSectionHidden(section))
              emit(this->*dragged)(section, qRound(size / scale_));
          });
}

void HeaderSizes::setScale(qreal scale) {
  const QScopedValueRollback applying(isApplying_, true);
  scale_ = scale;
  view_.horizontalHeader()->setDefaultSectionSize(scaled(kDefaultWidth));
}

void HeaderSizes::apply(const Sheet& sheet) {
  const QScopedValueRollback applying(isApplying_, true);
  applyHeights(sheet);
  applyWidths(sheet);
}

void HeaderSizes::applyDefaultHeight(const Sheet& sheet) {
  if (sheet.Rows() == 0) return;
  const QScopedValueRollback applying(isApplying_, true);
  lowestRow_ = lowestRow(sheet, scale_);
  QHeaderView& header = *view_.verticalHeader();
  const int height = std::max(scaled(sheet.DefaultRowHeight()), lowestRow_);
  if (header.defaultSectionSize() == height) return;
  header.setDefaultSectionSize(height);
  shown_.clear();
}

void HeaderSizes::applyHeights(const Sheet& sheet) {
  const int height = view_.verticalHeader()->defaultSectionSize();
  std::map<int, RowLayout> layouts = ownLayouts(sheet);
  for (const auto& [row, layout] : shown_) {
    if (!layouts.contains(row)) show(row, {height, false});
  }
  for (const auto& [row, layout] : layouts) show(row, layout);
  shown_ = std::move(layouts);
}

std::map<int, HeaderSizes::RowLayout> HeaderSizes::ownLayouts(const Sheet& sheet) const {
  std::map<int, RowLayout> layouts;
  const int rows = std::min(sheet.Rows(), view_.verticalHeader()->count());
  const int usual = view_.verticalHeader()->defaultSectionSize();
  for (int row = sheet.NextSizedRow(0); row < rows; row = sheet.NextSizedRow(row + 1)) {
    const std::optional<int> own = sheet.RowHeight(row);
    const int height = std::max(own ? scaled(*own) : usual, lowestRow_);
    layouts[row] = {height, sheet.IsRowHidden(row)};
  }
  if (firstSharer_) shareHeight(sheet, layouts);
  return layouts;
}

// Only while every row fits; else the rows keep their height, and the view scrolls.
void HeaderSizes::shareHeight(const Sheet& sheet, std::map<int, RowLayout>& layouts) const {
  const int rows = std::min(sheet.Rows(), view_.verticalHeader()->count());
  const int usual = view_.verticalHeader()->defaultSectionSize();
  int room = view_.viewport()->height();
  int sharers = 0;
  for (int row = 0; row < rows; ++row) {
    const auto layout = layouts.find(row);
    if (layout != layouts.end()) {
      room -= layout->second.hidden ? 0 : layout->second.height;
    } else if (row < *firstSharer_) {
      room -= usual;
    } else {
      ++sharers;
    }
  }
  constexpr int kTightest = 90;  // percent of a usual row, which has some room around its text
  if (sharers <= 0 || room / sharers < usual * kTightest / 100) return;
  int remainder = room % sharers;
  for (int row = *firstSharer_; row < rows; ++row) {
    if (layouts.contains(row)) continue;
    layouts[row] = {room / sharers + (remainder-- > 0 ? 1 : 0), false};
  }
}

void HeaderSizes::show(int row, const RowLayout& layout) {
  QHeaderView& header = *view_.verticalHeader();
  if (row >= header.count()) return;
  if (header.isSectionHidden(row) != layout.hidden) header.setSectionHidden(row, layout.hidden);
  if (!layout.hidden && header.sectionSize(row) != layout.height) {
    header.resizeSection(row, layout.height);
  }
}

void HeaderSizes::applyWidths(const Sheet& sheet) {
  const QScopedValueRollback applying(isApplying_, true);
  QHeaderView& header = *view_.horizontalHeader();
  int remainder = 0;
  const int shared = sharedWidth(sheet, &remainder);
  for (int col = 0; col < header.count(); ++col) {
    const std::optional<int> own = sheet.ColumnWidth(col);
    const int width = own ? scaled(*own) : shared + (remainder-- > 0 ? 1 : 0);
    if (header.sectionSize(col) != width) header.resizeSection(col, width);
  }
}

int HeaderSizes::sharedWidth(const Sheet& sheet, int* remainder) const {
  if (!sharesWidth_) return scaled(kDefaultWidth);
  int room = view_.viewport()->width();
  int sharers = 0;
  for (int col = 0; col < view_.horizontalHeader()->count(); ++col) {
    const std::optional<int> own = sheet.ColumnWidth(col);
    if (own) room -= scaled(*own);
    sharers += own ? 0 : 1;
  }
  if (sharers == 0 || room / sharers < kLeastSharedWidth) return kLeastSharedWidth;
  *remainder = room % sharers;
  return room / sharers;
}

}  // namespace vellora
