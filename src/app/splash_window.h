#pragma once

#include <QWidget>

namespace vellora {

// Stands on the screen while the board is made. It has no buttons and no timer.
class SplashWindow : public QWidget {
 public:
  explicit SplashWindow(const QString& skinPath);
};

}  // namespace vellora
