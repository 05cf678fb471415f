#include "grid/surface/text_layouts.h"

#include "grid/print/drawn_style.h"
#include "routine/calendar_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

#include <cmath>

namespace vellora {
namespace {

constexpr qreal kEndless = 1e6;
constexpr int kTextMargin = 3;  // pixels left and right of a text

// The room for a text.
struct TextRoom {
  qreal width;
  int lines;
  bool wraps;
};

constexpr QChar kEllipsis{u'…'};

// From the line's start to the end of what the writer meant as one line.
QString restOfLine(const QString& text, int start) {
  const qsizetype end = text.indexOf(QChar::LineSeparator, start);
  return text.mid(start, end < 0 ? -1 : end - start);
}

QString shownLine(const QTextLayout& layout, int number, const TextRoom& room) {
  const QTextLine line = layout.lineAt(number);
  const QString& text = layout.text();
  const auto end = line.textStart() + line.textLength();
  const bool isLast = number + 1 == room.lines && end < text.size();
  const QFontMetricsF metrics(layout.font());
  if (!isLast && room.wraps)
    return text.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator);
  const QString rest = restOfLine(text, line.textStart());
  QString elided = metrics.elidedText(rest, Qt::ElideRight, room.width);
  if (!isLast || elided != rest) return elided;
  return metrics.elidedText(rest + kEllipsis, Qt::ElideRight, room.width);
}

// Breaks the layout's text into at most the room's lines; false when the text does not fit.
bool breakLines(QTextLayout& layout, const TextRoom& room) {
  bool fits = true;
  layout.beginLayout();
  while (layout.lineCount() < room.lines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(room.wraps ? room.width : kEndless);
    if (line.naturalTextWidth() > room.width) fits = false;
  }
  layout.endLayout();
  if (layout.lineCount() == 0) return fits;
  const QTextLine last = layout.lineAt(layout.lineCount() - 1);
  return fits && last.textStart() + last.textLength() == layout.text().size();
}

// The text with an ellipsis where a line, or the last one, does not fit; its lines are final.
QString elidedLines(const QTextLayout& layout, const TextRoom& room) {
  QStringList lines;
  for (int i = 0; i < layout.lineCount(); ++i) lines << shownLine(layout, i, room);
  return lines.join(QChar::LineSeparator);
}

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
  const QFont shaped = fontOf(font, scale_);
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

// Drawn once: stroking the outline of a glyph takes far longer than drawing its picture.
const TextLayouts::GlyphEdge& TextLayouts::edgeOf(const QRawFont& font, quint32 glyph,
                                                  const QColor& colour, qreal ratio) {
  constexpr qreal kWidth = 0.9;  // pixels, half of them outside of the glyph
  const GlyphKey key{qHash(font), glyph, colour.rgb(), ratio};
  if (const GlyphEdge* known = edges_.object(key)) return *known;
  const QPainterPath shape = font.pathForGlyph(glyph);
  const QRect box = shape.boundingRect().adjusted(-1, -1, 1, 1).toAlignedRect();
  auto* edge = new GlyphEdge{QPixmap(box.size() * ratio), box.topLeft()};
  edge->picture.setDevicePixelRatio(ratio);
  edge->picture.fill(Qt::transparent);
  QPainter painter(&edge->picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-box.topLeft());
  painter.strokePath(shape, QPen(colour, kWidth));
  painter.end();
  edges_.insert(key, edge);
  return *edge;
}

void TextLayouts::drawEdge(QPainter& painter, const QGlyphRun& run, QPointF place,
                           const QColor& colour) {
  const QRawFont font = run.rawFont();
  const qreal ratio = painter.device()->devicePixelRatioF();
  const QList<quint32> glyphs = run.glyphIndexes();
  const QList<QPointF> places = run.positions();
  for (qsizetype i = 0; i < glyphs.size(); ++i) {
    const GlyphEdge& edge = edgeOf(font, glyphs[i], colour, ratio);
    const QPointF at = place + places[i];
    painter.drawPixmap(QPointF(std::round(at.x()), std::round(at.y())) + edge.offset, edge.picture);
  }
}

void TextLayouts::draw(QPainter& painter, const LaidOutText& text, const QRect& room,
                       Qt::Alignment align, const QColor& edge) {
  int top = room.top();
  if (align & Qt::AlignVCenter) top += (room.height() - text.height) / 2;
  if (align & Qt::AlignBottom) top += room.height() - text.height;
  const QPointF place(room.left(), top);
  for (const QGlyphRun& run : text.runs) {
    if (edge.isValid()) drawEdge(painter, run, place, edge);
    painter.drawGlyphRun(place, run);
  }
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

void TextLayouts::setScale(qreal scale) {
  scale_ = scale;
  clear();
}

void TextLayouts::clear() {
  texts_.clear();
  edges_.clear();
  fonts_.clear();
}

QRect textRoom(const QRect& cell, const CellStyle& style) {
  const int stripe = style.category > 0 ? kStripeWidth : 0;
  return cell.adjusted(kTextMargin + stripe, 0, -kTextMargin - 1, -1);
}

TextLayouts::Request textRequest(TextLayouts& texts, const CellStyle& style, const QString& text,
                                 const QRect& cell) {
  const QRect room = textRoom(cell, style);
  return {text,          texts.numberOf(style.font), room.width(),
          room.height(), alignmentOf(style.align),   style.wrap};
}

}  // namespace vellora
