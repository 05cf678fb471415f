#include "app/splash_window.h"

#include "grid/files/installed_face.h"
#include "shell/skin.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>

namespace vellora {
namespace {

constexpr int kIconSize = 96;  // pixels at 100 %

QLabel* makeTitle(QWidget* parent) {
  auto* title = new QLabel(u"Vellora日程表"_qs, parent);
  title->setFont(QFont(installedFace(u"黑体"_qs), 26));
  return title;
}

QLabel* makeIcon(QWidget* parent) {
  auto* icon = new QLabel(parent);
  // A picture of one size, read as what it is: QIcon would load every image plug-in to find out.
  const QPixmap whole(u":/vellora/vellora-256.png"_qs, "PNG");
  const double scale = icon->devicePixelRatioF();
  QPixmap picture = whole.scaledToHeight(qRound(kIconSize * scale), Qt::SmoothTransformation);
  picture.setDevicePixelRatio(scale);
  icon->setPixmap(picture);
  return icon;
}

QFrame* makeSeparator(QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  return line;
}

}  // namespace

SplashWindow::SplashWindow(const QString& skinPath) : QWidget(nullptr, Qt::SplashScreen) {
  setObjectName(u"formSplash"_qs);
  setWindowTitle(u"Vellora日程表2.8版"_qs);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(32, 28, 32, 24);
  grid->setHorizontalSpacing(28);
  grid->setVerticalSpacing(12);
  grid->addWidget(makeIcon(this), 0, 0, 3, 1, Qt::AlignCenter);
  grid->addWidget(makeTitle(this), 0, 1);
  grid->addWidget(makeSeparator(this), 1, 1);
  grid->addWidget(new QLabel(u"版本 2.8 FOR WINDOWS"_qs, this), 2, 1, Qt::AlignRight);
  grid->addWidget(makeSeparator(this), 3, 0, 1, 2);
  grid->addWidget(new QLabel(u"Vellora 日程表项目组"_qs, this), 4, 0, 1, 2);
  grid->addWidget(new QLabel(u"本程序按现状提供，日程数据只保存在本机，请定期备份。"_qs, this), 5,
                  0, 1, 2);
  applySkin(skinPath, *this);
}

}  // namespace vellora
