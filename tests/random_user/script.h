#pragma once

#include "random_user/hands.h"
#include "random_user/tables.h"

#include <QWidget>

#include <deque>
#include <functional>
#include <optional>

namespace vellora::test {

// One thing that happens between two looks at the screen.
struct Deed {
  QString what;
  std::function<void()> act;
  bool mayWrite;  // whether the program may store something because of it
};

// A place on the screen, found at the moment when it is needed; none when it is not there any more.
struct Spot {
  QString name;
  std::function<std::optional<QPoint>()> find;
};
Spot control(const QString& name);  // of the window or box in front
Spot caption(const QString& text);  // a button of the box in front
Spot cell(int col, int row);        // of the grid of the window in hand
Spot line(const QString& list, int number);
Spot inside(QWidget* widget, double x, double y);  // 0 to 1 from edge to edge

// What a step consists of. Every event is a deed of its own, so that windows, boxes and menus that
// an event opens take the next one.
class Script {
 public:
  explicit Script(Hands& hands) : hands_(hands) {}

  // All at the place where the spot was at the first press.
  void click(const Spot& spot, int times = 1, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {});
  void drag(const Spot& from, const Spot& to);
  void key(int key, Qt::KeyboardModifiers modifiers = {});
  void type(const QString& text);
  // Anything else; it has `mayWrite` of the planner's own doing.
  void add(const QString& what, std::function<void()> act, bool mayWrite = false);

  std::deque<Deed>& deeds() { return deeds_; }
  Hands& hands() { return hands_; }

 private:
  Hands& hands_;
  std::deque<Deed> deeds_;
};

}  // namespace vellora::test
