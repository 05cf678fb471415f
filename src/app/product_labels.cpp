#include "app/product_labels.h"

#include "grid/files/installed_face.h"
#include "shell/application_state.h"

#include <QLabel>
#include <QPixmap>

namespace vellora {

QLabel* makeProductTitle(int points, QWidget* parent) {
  auto* title = new QLabel(programTitle(), parent);
  title->setFont(QFont(installedFace(u"黑体"_qs), points));
  return title;
}

QLabel* makeProductIcon(QWidget* parent) {
  constexpr int kSize = 96;  // pixels at 100 %
  auto* icon = new QLabel(parent);
  icon->setAccessibleName(u"程序图标"_qs);
  const double scale = icon->devicePixelRatioF();
  // A picture of one size, read as what it is: QIcon would load every image plug-in to find out.
  QPixmap picture(u":/vellora/vellora-256.png"_qs, "PNG");
  picture = picture.scaledToHeight(qRound(kSize * scale), Qt::SmoothTransformation);
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
