#include "grid/surface/text_layouts.h"

#include "grid/print/drawn_style.h"
#include "grid_hands.h"

#include <QPainter>

namespace vellora {
namespace {

class Layouts : public testing::Test {
 protected:
  LaidOutText layOut(const QString& text, int width, int lines, bool wraps) {
    return layouts.layOut(
        {text, font, width, lines * layouts.lineHeight(font), Qt::AlignLeft, wraps});
  }
  int linesOf(const LaidOutText& text) const { return text.height / layouts.lineHeight(font); }
  static qsizetype glyphs(const LaidOutText& text) {
    qsizetype count = 0;
    for (const QGlyphRun& run : text.runs) count += run.glyphIndexes().size();
    return count;
  }
  // Right edge of what is drawn.
  static qreal extent(const LaidOutText& text) {
    qreal right = 0;
    for (const QGlyphRun& run : text.runs) right = std::max(right, run.boundingRect().right());
    return right;
  }

  TextLayouts layouts;
  int font = layouts.numberOf({});
};

TEST_F(Layouts, BreakAtCharacter13WithAndWithoutWrapping) {
  for (const bool wraps : {false, true}) {
    const LaidOutText text = layOut(u"ab\rcd"_qs, 200, 3, wraps);
    EXPECT_EQ(linesOf(text), 2);
    EXPECT_FALSE(text.isCut);
  }
}

TEST_F(Layouts, ShapeWhateverShapingChanges) {
  for (const auto& plain : {u""_qs, u"活动001\r按时完成"_qs, u"08:00-09:30\r早读，（一）"_qs}) {
    EXPECT_TRUE(isPlainText(plain)) << plain.toStdString();
  }
  for (const auto& other :
       {u"e\u0301"_qs, u"\u845b\U000E0100"_qs, u"——"_qs, u"AV"_qs, u"\u0639\u0631"_qs}) {
    EXPECT_FALSE(isPlainText(other)) << other.toStdString();
  }
  EXPECT_EQ(layouts.naturalWidth(u"e\u0301"_qs, font), layouts.naturalWidth(u"e"_qs, font));
}

TEST_F(Layouts, AreCutExactlyWhenTheTextDoesNotFit) {
  const QString longLine = u"一二三四五六七八九十"_qs;
  const int width = layouts.naturalWidth(longLine, font);
  struct Case {
    QString text;
    int width;
    int lines;
    bool wraps;
    bool isCut;
  };
  const std::vector<Case> cases{
      {longLine, width + 1, 1, false, false},     {longLine, width / 2, 1, false, true},
      {longLine, width / 2 + 12, 2, true, false}, {longLine, width / 3, 2, true, true},
      {u"a\rb\rc"_qs, width, 2, false, true},     {u"a\rb\rc"_qs, width, 3, false, false},
      {u"a\r"_qs, width, 1, false, false},        {longLine + u"\rb", width / 2, 2, false, true},
  };
  for (const Case& c : cases) {
    const LaidOutText text = layOut(c.text, c.width, c.lines, c.wraps);
    EXPECT_EQ(text.isCut, c.isCut) << c.text.toStdString() << ' ' << c.width << ' ' << c.lines;
    EXPECT_LE(linesOf(text), c.lines);
    EXPECT_LE(extent(text), c.width + 1);
  }
}

TEST_F(Layouts, ShowWithAnEllipsisThatMoreLinesFollow) {
  const LaidOutText whole = layOut(u"ab"_qs, 200, 1, false);
  const LaidOutText cut = layOut(u"ab\rcd"_qs, 200, 1, false);
  EXPECT_EQ(glyphs(cut), glyphs(whole) + 1);
}

TEST_F(Layouts, AreCutForATextAsLongAsABook) {
  const LaidOutText text = layOut(QString(1'000'000, u'字'), 100, 2, true);
  EXPECT_TRUE(text.isCut);
  EXPECT_LE(glyphs(text), 30);
  EXPECT_TRUE(layOut(QString(kMostDrawn, u'a') + u'b', kMostDrawn * 20, 1, false).isCut);
}

TEST_F(Layouts, PlaceLinesByTheirAlignment) {
  const auto leftEdge = [this](Qt::Alignment align) {
    return layouts.layOut({u"ab"_qs, font, 200, 20, align, false})
        .runs.front()
        .positions()
        .front()
        .x();
  };
  EXPECT_LT(leftEdge(Qt::AlignLeft), 2);
  EXPECT_NEAR(leftEdge(Qt::AlignHCenter), 100, 20);
  EXPECT_GT(leftEdge(Qt::AlignRight), 170);
}

TEST_F(Layouts, AreDrawnAtTheirHeightInTheRoom) {
  const auto firstInk = [this](Qt::Alignment align) {
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawText(painter, layOut(u"国"_qs, 100, 1, false), image.rect(), align);
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y).lightness() < 200) return y;
      }
    }
    return -1;
  };
  EXPECT_LT(firstInk(Qt::AlignTop), 10);
  EXPECT_NEAR(firstInk(Qt::AlignVCenter), 44, 5);
  EXPECT_GT(firstInk(Qt::AlignBottom), 80);
}

}  // namespace
}  // namespace vellora
