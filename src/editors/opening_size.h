#pragma once

#include <QScreen>
#include <QWidget>

namespace vellora {

// The size that a window asks for, or what a small or strongly scaled screen has room for.
inline QSize sizeOnScreen(const QWidget& window, QSize wanted) {
  const QSize room = window.screen()->availableSize();
  return wanted.boundedTo(QSize(room.width() * 9 / 10, room.height() * 9 / 10));
}

}  // namespace vellora
