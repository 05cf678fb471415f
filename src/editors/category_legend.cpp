#include "editors/category_legend.h"

#include "routine/category.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
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

QLabel* makeEntry(int index, QWidget* parent) {
  const auto& [text, colour] = categories().at(static_cast<std::size_t>(index));
  auto* label = new QLabel(text, parent);
  label->setObjectName(u"LbTJ%1"_qs.arg(index));
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(redOf(colour), greenOf(colour), blueOf(colour)));
  palette.setColor(QPalette::WindowText, legendText(index));
  label->setPalette(palette);
  label->setAutoFillBackground(true);
  label->setFont(QFont(u"楷体_GB2312"_qs, 12));
  label->setAlignment(Qt::AlignCenter);
  label->setMargin(5);
  return label;
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
