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

PackedColour packed(const QColor& colour) {
  return packColour(colour.red(), colour.green(), colour.blue());
}

// A caption on its colour: with an edge where it could not be read, in a frame that parts it from a
// window of the same colour.
class LegendEntry : public QLabel {
 public:
  LegendEntry(const QString& caption, const QColor& text, PackedColour paper, QWidget* parent)
      : QLabel(caption, parent), text_(text), paper_(paper) {}

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), colourOf(paper_));
    painter.setPen(QApplication::palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ink = fontMetrics().tightBoundingRect(text());
    QPainterPath letters;
    letters.addText(QRectF(rect()).center() - ink.center(), font(), text());
    if (const auto edge = edgeFor(packed(text_), paper_)) {
      const QPen outline(colourOf(*edge), kEdge, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
      painter.strokePath(letters, outline);
    }
    painter.fillPath(letters, text_);
  }

 private:
  static constexpr double kEdge = 2.4;  // pixels, half of them on each side of a line

  QColor text_;
  PackedColour paper_;
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
