#pragma once

#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWindow>

namespace vellora::test {

// Mouse and keyboard as a desktop delivers them, one event at a time: to the window on top at the
// place, to the pop-up that has grabbed the mouse, or to the window with the focus. What a modal
// window blocks is for the toolkit to decide.
class Hands {
 public:
  // The second press of a double click comes soon after the first one at the same place.
  void press(QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers modifiers, bool soon);
  void move(QPoint place);
  void release(QPoint place);

  void pressKey(int key, Qt::KeyboardModifiers modifiers);
  void releaseKey(int key, Qt::KeyboardModifiers modifiers);
  // ASCII by keys, anything else as an input method commits it.
  void type(const QString& text);
  // To the focus of the program at once, or nothing when there is none.
  static void commit(const QString& text);
  // A button of the mouse or a key is down.
  bool isHolding() const { return pressed_ != Qt::NoButton || is_key_down_; }

 private:
  QWindow* windowAt(QPoint place) const;
  void send(QEvent::Type type, QPoint place, Qt::MouseButton button,
            Qt::KeyboardModifiers modifiers);

  QPointer<QWindow> grabber_;  // from a press to its release
  Qt::MouseButton pressed_ = Qt::NoButton;
  bool is_key_down_ = false;
  int clock_ = 10'000;  // milliseconds, of the events
};

}  // namespace vellora::test
