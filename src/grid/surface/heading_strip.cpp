#include "grid/surface/heading_strip.h"

#include "grid/surface/grid_appearance.h"

#include <QPainter>

namespace vellora {
namespace {

constexpr int kMargin = 5;  // pixels on every side of a heading's text

}  // namespace

HeadingStrip::HeadingStrip(Qt::Orientation orientation, const Workbook& book,
                           const GridAppearance& appearance, TextLayouts& texts)
    : QHeaderView(orientation), book_(book), appearance_(appearance), texts_(texts) {
  setSectionsClickable(true);
  setHighlightSections(false);
  setAccessibleName(orientation == Qt::Horizontal ? u"列标题"_qs : u"行号"_qs);
}

QString HeadingStrip::text(int section) const {
  if (orientation() == Qt::Vertical) return QString::number(section + 1);
  return book_.sheet().GetCellText(section, kHeadingRow);
}

const CellStyle& HeadingStrip::style(int section) const {
  return book_.sheet().StyleAt(orientation() == Qt::Horizontal ? section : 0, kHeadingRow);
}

void HeadingStrip::paintSection(QPainter* painter, const QRect& rect, int section) const {
  const GridColours& colours = appearance_.colours;
  const CellStyle& heading = style(section);
  const auto [foreground, background] = textColours(heading, colours, true);
  const TextLayouts::Request request = textRequest(texts_, heading, text(section), rect);
  painter->fillRect(rect, background);
  painter->fillRect(rect.right(), rect.top(), 1, rect.height(), colours.line);
  painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1, colours.line);
  painter->setPen(foreground);
  if (request.width > 0)
    texts_.draw(*painter, texts_.layOut(request), textRoom(rect, heading), request.align);
}

QSize HeadingStrip::sectionSizeFromContents(int section) const {
  const int font = texts_.numberOf(style(section).font);
  const auto lines = static_cast<int>(text(section).count(u'\r')) + 1;
  return {texts_.naturalWidth(text(section), font) + 2 * kMargin,
          lines * texts_.lineHeight(font) + 2 * kMargin};
}

}  // namespace vellora
