#include "app/product_labels.h"

#include "app/product_icon.h"
#include "grid/print/drawn_style.h"
#include "shell/application_state.h"

#include <QLabel>
#include <QPixmap>

namespace vellora {

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
