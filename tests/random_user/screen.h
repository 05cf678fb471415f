#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <vector>

namespace vellora {
class GridSurface;
class PlannerWindow;
}  // namespace vellora

// What the user sees: the windows by kind and name, never their insides.
namespace vellora::test {

// What takes the user's input now: a pop-up, a box, or a window of the planner. Null at the end.
QWidget* front();
// The planner's window in front, or the one behind the box in front.
PlannerWindow* windowInHand();
// The program is at work and shows the box in which that can be given up.
bool isWaiting();
// A button goes down and up, as one does whose letter was pressed, and then does its work.
bool isButtonDown();

// "DailyPlanWindow", "QMessageBox".
QString kindOf(const QWidget& widget);
// Object name, or caption, or kind.
QString nameOf(const QWidget& control);
GridSurface* gridOf(const QWidget& window);
// By object name; null when it is not there or cannot be used.
QWidget* controlNamed(const QWidget& window, const QString& name);
// All that can be clicked or typed into now.
std::vector<QWidget*> controlsOf(const QWidget& window);
// Of a box that tells or asks; empty for anything else.
QString boxText(const QWidget* widget);
// Of an edit, a picker or a combo box.
QString textIn(const QWidget& window, const QString& name);
// The texts of all cells, one text for each row; empty for an empty row, none for those at the end.
QStringList rowsOf(const GridSurface& grid);

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
