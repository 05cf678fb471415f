#include "app/splash_window.h"

#include "app/product.h"
#include "grid/print/drawn_style.h"
#include "shell/skin.h"

#include <QGridLayout>
#include <QLabel>

namespace vellora {

SplashWindow::SplashWindow(const QString& skinPath) : QWidget(nullptr, Qt::SplashScreen) {
  setObjectName(u"formSplash"_qs);
  setFont(plainFont(font()));
  setWindowTitle(u"Vellora日程表2.8版"_qs);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(32, 28, 32, 24);
  grid->setHorizontalSpacing(28);
  grid->setVerticalSpacing(12);
  grid->addWidget(makeProductIcon(this), 0, 0, 3, 1, Qt::AlignCenter);
  grid->addWidget(makeProductTitle(26, this), 0, 1);
  grid->addWidget(makeSeparator(QFrame::HLine, this), 1, 1);
  grid->addWidget(new QLabel(versionLine(), this), 2, 1, Qt::AlignRight);
  grid->addWidget(makeSeparator(QFrame::HLine, this), 3, 0, 1, 2);
  grid->addWidget(new QLabel(makersLine(), this), 4, 0, 1, 2);
  grid->addWidget(new QLabel(legalNotice(), this), 5, 0, 1, 2);
  applySkin(skinPath, *this);
}

}  // namespace vellora
