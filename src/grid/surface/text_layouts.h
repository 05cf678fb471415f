#pragma once

#include "grid/sheet/cell_style.h"

#include <QCache>
#include <QColor>
#include <QFont>
#include <QGlyphRun>
#include <QPixmap>
#include <QRawFont>
#include <QRect>
#include <QString>

#include <vector>

class QPainter;

namespace vellora {

// Characters of one text that are ever drawn; no cell has room for more.
inline constexpr int kMostDrawn = 4000;

// A text as it is drawn: glyphs placed from the top left of its room.
struct LaidOutText {
  QList<QGlyphRun> runs;
  int height = 0;      // pixels
  bool isCut = false;  // an ellipsis stands for what did not fit
};

// Lays each text out once and keeps it for the next painting; laying out costs far more than
// drawing. Bounded: what was not drawn for long goes first.
class TextLayouts {
 public:
  // A font's number, for requests.
  int numberOf(const CellFont& font);
  int lineHeight(int font) const { return fonts_[static_cast<std::size_t>(font)].lineHeight; }

  struct Request {
    QString text;  // lines separated by character 13
    int font = 0;
    int width = 0;   // pixels
    int height = 0;  // pixels; at least one line is laid out
    Qt::Alignment align;
    bool wraps = false;
  };
  // Valid until the next call.
  const LaidOutText& layOut(const Request& request);
  // Draws a text at its vertical place in the room, in the painter's pen, over an edge around its
  // glyphs where that has a colour.
  void draw(QPainter& painter, const LaidOutText& text, const QRect& room, Qt::Alignment align,
            const QColor& edge = {});
  // Width of the widest line, in pixels.
  int naturalWidth(const QString& text, int font) const;
  // As many lines as all of the text needs in the request's width.
  int lineCount(const Request& request) const;
  // Draws every font this many times as large.
  void setScale(qreal scale);
  // When fonts or the screen changed.
  void clear();

 private:
  struct Font {
    CellFont asked;
    QFont plain;  // for plain texts
    QFont shaped;
    int lineHeight;
  };
  struct Key {
    QString text;
    int font;
    int width;
    int lines;
    int shape;  // horizontal alignment and wrapping
    friend bool operator==(const Key&, const Key&) = default;
    friend std::size_t qHash(const Key& key, std::size_t seed) {
      return qHashMulti(seed, key.text, key.font, key.width, key.lines, key.shape);
    }
  };

  // The edge of one glyph as it is drawn, and where from the glyph's place.
  struct GlyphEdge {
    QPixmap picture;
    QPointF offset;
  };
  struct GlyphKey {
    std::size_t font;
    quint32 glyph;
    QRgb colour;
    qreal ratio;  // of the screen's pixels
    friend bool operator==(const GlyphKey&, const GlyphKey&) = default;
    friend std::size_t qHash(const GlyphKey& key, std::size_t seed) {
      return qHashMulti(seed, key.font, key.glyph, key.colour, key.ratio);
    }
  };

  const GlyphEdge& edgeOf(const QRawFont& font, quint32 glyph, const QColor& colour, qreal ratio);
  void drawEdge(QPainter& painter, const QGlyphRun& run, QPointF place, const QColor& colour);
  const QFont& fontFor(int number, QStringView text) const;

  qreal scale_ = 1;
  std::vector<Font> fonts_;
  QCache<Key, LaidOutText> texts_{4096};
  QCache<GlyphKey, GlyphEdge> edges_{4096};
};

// The stripe of a cell's category at its left edge, and where its text lies within its rectangle,
// grid line included.
inline constexpr int kStripeWidth = 5;  // pixels
QRect textRoom(const QRect& cell, const CellStyle& style);

// How one cell's text is asked of the layouts.
TextLayouts::Request textRequest(TextLayouts& texts, const CellStyle& style, const QString& text,
                                 const QRect& cell);

}  // namespace vellora
