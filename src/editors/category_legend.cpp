#include "editors/category_legend.h"

#include "grid/print/drawn_style.h"
#include "routine/category.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

namespace vellora {
namespace {

constexpr int kLegendColumns = 2;
constexpr int kBlackTextAt = 2;  // the light green is too bright for light text

// The system's own light text, not the skin's, which may be dark.
QColor legendText(int index) {
  return index == kBlackTextAt ? QColor(Qt::black)
                               : QApplication::style()->standardPalette().highlightedText().color();
}

// A caption on its colour, in a frame that parts it from a window of the same colour. Light letters
// on bright paper need an edge of twice the width that dark ones in a cell do.
class LegendEntry : public QLabel {
 public:
  LegendEntry(const QString& caption, const QColor& text, PackedColour paper, QWidget* parent)
      : QLabel(caption, parent) {
    QPalette palette;
    palette.setColor(QPalette::Window, colourOf(paper));
    palette.setColor(QPalette::WindowText, text);
    setPalette(palette);
    setAutoFillBackground(true);
    if (const auto edge = edgeFor(packColour(text.red(), text.green(), text.blue()), paper,
                                  kBlendedEdgeContrast)) {
      edge_ = QPen(colourOf(*edge), 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    }
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setPen(QApplication::palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ink = fontMetrics().tightBoundingRect(text());
    QPainterPath letters;
    letters.addText(QRectF(rect()).center() - ink.center(), font(), text());
    painter.strokePath(letters, edge_);
    painter.fillPath(letters, palette().color(QPalette::WindowText));
  }

 private:
  QPen edge_{Qt::NoPen};
};

QLabel* makeEntry(int index, QWidget* parent) {
  const auto& [caption, colour] = categories().at(static_cast<std::size_t>(index));
  auto* entry = new LegendEntry(caption, legendText(index), colour, parent);
  entry->setObjectName(u"LbTJ%1"_qs.arg(index));
  entry->setFont(QFont(u"楷体_GB2312"_qs, 12));
  entry->setMargin(5);
  return entry;
}

}  // namespace

CategoryLegend::CategoryLegend(QWidget* parent) : QWidget(parent) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins({});
  for (int i = 0; i < kCategoryCount; ++i) {
    grid->addWidget(makeEntry(i, this), i / kLegendColumns, i % kLegendColumns);
  }
}

}  // namespace vellora
