#include "random_user/hands.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>

namespace vellora::test {
namespace {

constexpr int kSoon = 20;      // milliseconds between the clicks of a double click
constexpr int kLater = 2'000;  // and between any others

struct Modifier {
  Qt::KeyboardModifier modifier;
  int key;
};
constexpr Modifier kModifiers[]{{Qt::ShiftModifier, Qt::Key_Shift},
                                {Qt::ControlModifier, Qt::Key_Control},
                                {Qt::AltModifier, Qt::Key_Alt}};

// Without a round of the event loop, which the toolkit's own helpers take.
void sendKey(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
             const QString& text = {}) {
  if (auto* window = QGuiApplication::focusWindow()) {
    qt_handleKeyEvent(window, type, key, modifiers, text);
  }
}

// What a key types; a control character for the keys that a desktop gives one.
QString textOf(int key, Qt::KeyboardModifiers modifiers) {
  if (modifiers & (Qt::ControlModifier | Qt::AltModifier)) return {};
  if (key == Qt::Key_Return || key == Qt::Key_Enter) return QStringLiteral("\r");
  if (key == Qt::Key_Tab) return QStringLiteral("\t");
  if (key == Qt::Key_Escape) return QStringLiteral("\x1b");
  if (key == Qt::Key_Backspace) return QStringLiteral("\b");
  if (key == Qt::Key_Delete) return QStringLiteral("\x7f");
  return key < 0x80 ? QString(QChar(key)) : QString();
}

}  // namespace

QWindow* Hands::windowAt(QPoint place) const {
  if (auto* popup = QApplication::activePopupWidget()) return popup->windowHandle();
  return grabber_ ? grabber_.data() : QGuiApplication::topLevelAt(place);
}

void Hands::send(QEvent::Type type, QPoint place, Qt::MouseButton button,
                 Qt::KeyboardModifiers modifiers) {
  QWindow* window = windowAt(place);
  if (!window) return;
  if (type == QEvent::MouseButtonPress) grabber_ = window;
  if (type == QEvent::MouseButtonRelease) grabber_ = nullptr;
  qt_handleMouseEvent(window, window->mapFromGlobal(place), place, pressed_, button, type,
                      modifiers, clock_);
}

void Hands::press(QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                  bool soon) {
  clock_ += soon ? kSoon : kLater;
  pressed_ = button;
  send(QEvent::MouseButtonPress, place, button, modifiers);
}

void Hands::move(QPoint place) {
  clock_ += kSoon;
  send(QEvent::MouseMove, place, Qt::NoButton, {});
}

void Hands::release(QPoint place) {
  clock_ += kSoon;
  const Qt::MouseButton button = std::exchange(pressed_, Qt::NoButton);
  if (button != Qt::NoButton) send(QEvent::MouseButtonRelease, place, button, {});
}

void Hands::pressKey(int key, Qt::KeyboardModifiers modifiers) {
  is_key_down_ = true;
  Qt::KeyboardModifiers held;
  for (const auto& [modifier, modifierKey] : kModifiers) {
    if (!modifiers.testFlag(modifier)) continue;
    sendKey(QEvent::KeyPress, modifierKey, held);
    held |= modifier;
  }
  sendKey(QEvent::KeyPress, key, modifiers, textOf(key, modifiers));
}

void Hands::releaseKey(int key, Qt::KeyboardModifiers modifiers) {
  is_key_down_ = false;
  sendKey(QEvent::KeyRelease, key, modifiers, textOf(key, modifiers));
  for (const auto& [modifier, modifierKey] : kModifiers) {
    if (modifiers.testFlag(modifier)) sendKey(QEvent::KeyRelease, modifierKey, modifiers);
  }
}

void Hands::type(const QString& text) {
  const bool isAscii =
      std::all_of(text.begin(), text.end(), [](QChar c) { return c < QChar(128); });
  if (!isAscii) return commit(text);
  for (const QChar character : text) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      sendKey(type, character.toUpper().unicode(), {}, QString(character));
    }
  }
}

void Hands::commit(const QString& text) {
  QObject* focus = QGuiApplication::focusObject();
  if (!focus) return;
  QInputMethodEvent event;
  event.setCommitString(text);
  QCoreApplication::sendEvent(focus, &event);
}

}  // namespace vellora::test
