#include "grid/surface/text_layouts.h"

#include "grid/print/drawn_style.h"
#include "grid/surface/line_breaker.h"
#include "routine/calendar_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace vellora {
namespace {

constexpr qreal kEndless = 1e6;

// Chinese faces ask for wide gaps between lines, which two lines in a low row do not have.
int lineHeightOf(const QFont& font) {
  const QFontMetricsF metrics(font);
  const QFontInfo info(font);
  return static_cast<int>(std::ceil(std::min(metrics.height(), info.pixelSize() * 1.4)));
}

// An empty last line would only push the others out of the middle.
QString withSeparators(const QString& text) {
  QString drawn = text.left(kMostDrawn);
  while (drawn.endsWith(kLineBreak)) drawn.chop(1);
  return drawn.replace(kLineBreak, QChar::LineSeparator);
}

QTextOption optionFor(bool wraps) {
  QTextOption option;
  option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
  option.setTextDirection(Qt::LeftToRight);
  return option;
}

qreal leftOf(const QTextLine& line, qreal width, Qt::Alignment align) {
  const qreal room = width - line.naturalTextWidth();
  if (align & Qt::AlignHCenter) return std::floor(room / 2);
  return align & Qt::AlignRight ? std::floor(room) : 0;
}

LaidOutText placed(const QTextLayout& layout, qreal width, Qt::Alignment align, int lineHeight) {
  for (int i = 0; i < layout.lineCount(); ++i) {
    QTextLine line = layout.lineAt(i);
    const qreal top = i * lineHeight + (lineHeight - line.height()) / 2;
    line.setPosition({leftOf(line, width, align), std::round(top)});
  }
  return {layout.glyphRuns(), layout.lineCount() * lineHeight, false};
}

LaidOutText laidOut(const QString& text, const QFont& font, const TextRoom& room,
                    Qt::Alignment align, int lineHeight) {
  QTextLayout layout(withSeparators(text), font);
  layout.setTextOption(optionFor(room.wraps));
  const bool isWhole = text.size() <= kMostDrawn;
  if (breakLines(layout, room) && isWhole) return placed(layout, room.width, align, lineHeight);
  QTextLayout shortened(elidedLines(layout, room), font);
  shortened.setTextOption(optionFor(false));
  breakLines(shortened, {kEndless, room.lines, false});
  LaidOutText result = placed(shortened, room.width, align, lineHeight);
  result.isCut = true;
  return result;
}

}  // namespace

int TextLayouts::numberOf(const CellFont& font) {
  for (std::size_t i = 0; i < fonts_.size(); ++i) {
    if (fonts_[i].asked == font) return static_cast<int>(i);
  }
  const QFont shaped = fontOf(font);
  const QFont plain = plainFont(shaped);
  fonts_.push_back({font, plain, shaped, lineHeightOf(plain)});
  return static_cast<int>(fonts_.size()) - 1;
}

const QFont& TextLayouts::fontFor(int number, QStringView text) const {
  const Font& font = fonts_[static_cast<std::size_t>(number)];
  return isPlainText(text.left(kMostDrawn)) ? font.plain : font.shaped;
}

const LaidOutText& TextLayouts::layOut(const Request& request) {
  const int height = lineHeight(request.font);
  const int lines = std::max(1, request.height / height);
  const Qt::Alignment align = request.align & Qt::AlignHorizontal_Mask;
  const int shape = static_cast<int>(align) * 2 + (request.wraps ? 1 : 0);
  const Key key{request.text, request.font, request.width, lines, shape};
  if (const LaidOutText* known = texts_.object(key)) return *known;
  auto* text = new LaidOutText(laidOut(request.text, fontFor(request.font, request.text),
                                       {static_cast<qreal>(request.width), lines, request.wraps},
                                       align, height));
  texts_.insert(key, text);
  return *text;
}

int TextLayouts::naturalWidth(const QString& text, int number) const {
  const QFontMetricsF metrics(fontFor(number, text));
  qreal widest = 0;
  for (const QString& line : text.left(kMostDrawn).split(kLineBreak)) {
    widest = std::max(widest, metrics.horizontalAdvance(line));
  }
  return static_cast<int>(std::ceil(widest));
}

int TextLayouts::lineCount(const Request& request) const {
  QTextLayout layout(withSeparators(request.text), fontFor(request.font, request.text));
  layout.setTextOption(optionFor(request.wraps));
  constexpr int kMostLines = 200;
  breakLines(layout, {static_cast<qreal>(request.width), kMostLines, request.wraps});
  return std::max(1, layout.lineCount());
}

void TextLayouts::clear() {
  texts_.clear();
  fonts_.clear();
}

void drawText(QPainter& painter, const LaidOutText& text, const QRect& room, Qt::Alignment align) {
  int top = room.top();
  if (align & Qt::AlignVCenter) top += (room.height() - text.height) / 2;
  if (align & Qt::AlignBottom) top += room.height() - text.height;
  for (const QGlyphRun& run : text.runs) painter.drawGlyphRun(QPointF(room.left(), top), run);
}

}  // namespace vellora
