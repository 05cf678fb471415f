#include "app/product.h"

#include "grid/print/drawn_style.h"
#include "shell/application_state.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace vellora {
namespace {

constexpr int kUnits = 64;  // the drawing's width and height
constexpr QColor kOutline(0x22, 0x32, 0x4a);
constexpr QColor kHeading(0x2f, 0x6f, 0xc4);
constexpr QColor kLine(0xc9, 0xd2, 0xdf);
constexpr QRectF kBoard(4, 6, 56, 54);
constexpr qreal kCorner = 8;

struct Plan {
  QRectF block;
  QColor colour;
};

constexpr Plan kPlans[]{
    {{8, 24, 12, 8}, {0xe5, 0x39, 0x35}},  {{26, 24, 13, 8}, {0x2f, 0x55, 0xd4}},
    {{44, 36, 12, 8}, {0x12, 0xa1, 0x50}}, {{26, 36, 13, 8}, {0xf5, 0xa5, 0x24}},
    {{8, 48, 12, 8}, {0xc2, 0x37, 0x9b}},  {{44, 48, 12, 8}, kOutline},
};

constexpr QLineF kGridLines[]{
    {22.5, 22, 22.5, 58}, {41.5, 22, 41.5, 58}, {6, 34, 58, 34}, {6, 46, 58, 46}};
constexpr QLineF kRings[]{{18, 3, 18, 12}, {46, 3, 46, 12}};

QPainterPath headingShape() {
  constexpr qreal kWide = 2 * kCorner;
  QPainterPath shape(QPointF(kBoard.left(), 21));
  shape.arcTo(kBoard.left(), kBoard.top(), kWide, kWide, 180, -90);
  shape.arcTo(kBoard.right() - kWide, kBoard.top(), kWide, kWide, 90, -90);
  shape.lineTo(kBoard.right(), 21);
  shape.closeSubpath();
  return shape;
}

void drawBoard(QPainter& painter) {
  painter.setPen(QPen(kOutline, 3));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(kBoard, kCorner, kCorner);
  painter.fillPath(headingShape(), kHeading);
  painter.setPen(QPen(kOutline, 4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLines(kRings, std::size(kRings));
}

void drawPlans(QPainter& painter) {
  painter.setPen(QPen(kLine, 2, Qt::SolidLine, Qt::FlatCap));
  painter.drawLines(kGridLines, std::size(kGridLines));
  painter.setPen(Qt::NoPen);
  for (const auto& [block, colour] : kPlans) {
    painter.setBrush(colour);
    painter.drawRoundedRect(block, 2, 2);
  }
}

}  // namespace

QPixmap productIcon(int size) {
  QPixmap icon(size, size);
  icon.fill(Qt::transparent);
  QPainter painter(&icon);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(qreal(size) / kUnits, qreal(size) / kUnits);
  drawBoard(painter);
  drawPlans(painter);
  return icon;
}

QLabel* makeProductTitle(int points, QWidget* parent) {
  auto* title = new QLabel(programTitle(), parent);
  title->setFont(plainFont(QFont(installedFace(u"黑体"_qs), points)));
  return title;
}

QLabel* makeProductIcon(QWidget* parent) {
  constexpr int kSize = 96;  // pixels at 100 %
  auto* icon = new QLabel(parent);
  icon->setAccessibleName(u"程序图标"_qs);
  const double scale = icon->devicePixelRatioF();
  QPixmap picture = productIcon(qRound(kSize * scale));
  picture.setDevicePixelRatio(scale);
  icon->setPixmap(picture);
  return icon;
}

QFrame* makeSeparator(QFrame::Shape shape, QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setFrameStyle(int(shape) | int(QFrame::Sunken));
  return line;
}

}  // namespace vellora
