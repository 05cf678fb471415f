#pragma once

#include "random_user/screen.h"

#include <deque>
#include <functional>
#include <optional>

namespace vellora::test {

// One thing that happens between two looks at the screen.
struct Deed {
  QString what;
  bool mayWrite;  // whether the program may store something because of it
  std::function<void()> act;
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
struct Script {
  Hands& hands;
  std::deque<Deed> deeds;

  void add(const QString& what, bool mayWrite, std::function<void()> act) {
    deeds.push_back({what, mayWrite, std::move(act)});
  }
  // All at the place where the spot was at the first press.
  void click(const Spot& spot, int times = 1, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {});
  void drag(const Spot& from, const Spot& to);
  void key(int key, Qt::KeyboardModifiers modifiers = {});
  void type(const QString& text);
};

}  // namespace vellora::test
