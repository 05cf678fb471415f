#include "random_user/script.h"

#include "grid/surface/grid_surface.h"
#include "random_user/screen.h"
#include "shell/planner_window.h"

#include <QAbstractButton>
#include <QKeySequence>
#include <QListWidget>

#include <memory>

namespace vellora::test {
namespace {

QPoint centreOf(const QWidget& widget) {
  return widget.mapToGlobal(widget.rect().center());
}

std::optional<QPoint> placeOf(const QAbstractItemView& view, const QRect& rect) {
  const QRect seen = rect & view.viewport()->rect();
  if (seen.isEmpty()) return {};
  return view.viewport()->mapToGlobal(seen.center());
}

}  // namespace

Spot control(const QString& name) {
  return {name, [=]() -> std::optional<QPoint> {
            if (QWidget* found = front() ? controlNamed(*front(), name) : nullptr) {
              return centreOf(*found);
            }
            return {};
          }};
}

Spot caption(const QString& text) {
  return {text, [=]() -> std::optional<QPoint> {
            for (QWidget* found : front() ? controlsOf(*front()) : std::vector<QWidget*>()) {
              const auto* button = qobject_cast<QAbstractButton*>(found);
              if (button && button->text() == text) return centreOf(*found);
            }
            return {};
          }};
}

Spot cell(int col, int row) {
  return {u"cell %1,%2"_qs.arg(col).arg(row), [=]() -> std::optional<QPoint> {
            const auto* grid = windowInHand() ? gridOf(*windowInHand()) : nullptr;
            if (!grid) return {};
            return placeOf(*grid, grid->visualRect(grid->model()->index(row, col)));
          }};
}

Spot line(const QString& list, int number) {
  return {list + u" line %1"_qs.arg(number), [=]() -> std::optional<QPoint> {
            const auto* lines =
                windowInHand() ? windowInHand()->findChild<QListWidget*>(list) : nullptr;
            if (!lines || lines->count() == 0) return {};
            return placeOf(*lines, lines->visualItemRect(lines->item(number % lines->count())));
          }};
}

Spot inside(QWidget* widget, double x, double y) {
  return {nameOf(*widget), [found = QPointer(widget), x, y]() -> std::optional<QPoint> {
            if (!found || !found->isVisible()) return {};
            const QPointF place(x * (found->width() - 1), y * (found->height() - 1));
            return found->mapToGlobal(QPoint(int(place.x()), int(place.y())));
          }};
}

void Script::click(const Spot& spot, int times, Qt::MouseButton button,
                   Qt::KeyboardModifiers modifiers) {
  if (!spot.find) return;
  const QString what = (modifiers ? u"Shift+"_qs : QString()) +
                       (button == Qt::RightButton ? u"right "_qs : QString()) +
                       (times > 1 ? u"double click "_qs : u"click "_qs) + spot.name;
  const auto place = std::make_shared<std::optional<QPoint>>();
  for (int i = 0; i < times; ++i) {
    add(what, true, [=, this, soon = i > 0] {
      if (!soon) *place = spot.find();
      if (*place && !soon) hands.move(**place);
      if (*place) hands.press(**place, button, modifiers, soon);
    });
    add(u"release"_qs, true, [=, this] {
      if (*place) hands.release(**place);
    });
  }
}

void Script::drag(const Spot& from, const Spot& to) {
  const auto place = std::make_shared<std::optional<QPoint>>();
  add(u"press "_qs + from.name, true, [=, this] {
    *place = from.find();
    if (*place) hands.press(**place, Qt::LeftButton, {}, false);
  });
  add(u"drag to "_qs + to.name, false, [=, this] {
    const auto target = to.find();
    if (!*place || !target) return;
    hands.move((**place + *target) / 2);
    hands.move(*target);
    *place = target;
  });
  add(u"release"_qs, true, [=, this] {
    if (*place) hands.release(**place);
  });
}

// Keys that only move, end a text or undo it store nothing. Whether Enter or a letter with Alt does
// depends on where it is pressed.
void Script::key(int key, Qt::KeyboardModifiers modifiers) {
  const bool mayWrite = modifiers & (Qt::AltModifier | Qt::ControlModifier) ||
                        key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
  const QString name = QKeySequence(key | static_cast<int>(modifiers)).toString();
  add(u"key "_qs + name, mayWrite, [=, this] { hands.pressKey(key, modifiers); });
  add(u"key up"_qs, mayWrite, [=, this] { hands.releaseKey(key, modifiers); });
}

void Script::type(const QString& text) {
  const QString shown = QString(text).replace(u'\t', u"⇥"_qs).replace(u'\n', u"⏎"_qs);
  const bool mayWrite = text.contains(u' ');  // presses the button that has the focus
  const qsizetype first = text.front() < QChar(128) ? 1 : text.size();
  add(u"type “"_qs + shown + u'”', mayWrite, [=, this] { hands.type(text.first(first)); });
  if (first == text.size()) return;
  add(u"type on"_qs, mayWrite, [=, this] { hands.type(text.sliced(first)); });
}

}  // namespace vellora::test
