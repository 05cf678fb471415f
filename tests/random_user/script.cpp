#include "random_user/script.h"

#include "grid/surface/grid_surface.h"
#include "random_user/eyes.h"
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

// Keys that only move, end a text or undo it. Whether Enter or a letter with Alt stores something
// depends on where it is pressed.
bool mayWriteBy(int key, Qt::KeyboardModifiers modifiers) {
  const bool isCommand = modifiers & (Qt::AltModifier | Qt::ControlModifier);
  return isCommand || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
}

}  // namespace

Spot control(const QString& name) {
  return {name, [name]() -> std::optional<QPoint> {
            auto* found = front() ? controlNamed(*front(), name) : nullptr;
            return found ? std::optional(centreOf(*found)) : std::nullopt;
          }};
}

Spot caption(const QString& text) {
  return {text, [text]() -> std::optional<QPoint> {
            const auto controls = front() ? controlsOf(*front()) : std::vector<QWidget*>();
            for (const QWidget* found : controls) {
              const auto* button = qobject_cast<const QAbstractButton*>(found);
              if (button && button->text() == text) return centreOf(*found);
            }
            return {};
          }};
}

Spot cell(int col, int row) {
  return {u"cell %1,%2"_qs.arg(col).arg(row), [col, row]() -> std::optional<QPoint> {
            const auto* window = windowInHand();
            const auto* grid = window ? gridOf(*window) : nullptr;
            if (!grid) return {};
            return placeOf(*grid, grid->visualRect(grid->model()->index(row, col)));
          }};
}

Spot line(const QString& list, int number) {
  return {list + u" line %1"_qs.arg(number), [list, number]() -> std::optional<QPoint> {
            const auto* window = windowInHand();
            const auto* lines = window ? window->findChild<QListWidget*>(list) : nullptr;
            if (!lines || lines->count() == 0) return {};
            return placeOf(*lines, lines->visualItemRect(lines->item(number % lines->count())));
          }};
}

Spot inside(QWidget* widget, double x, double y) {
  return {nameOf(*widget), [found = QPointer(widget), x, y]() -> std::optional<QPoint> {
            if (!found || !found->isVisible()) return {};
            return found->mapToGlobal(QPoint(static_cast<int>(x * (found->width() - 1)),
                                             static_cast<int>(y * (found->height() - 1))));
          }};
}

void Script::add(const QString& what, std::function<void()> act, bool mayWrite) {
  deeds_.push_back({what, std::move(act), mayWrite});
}

void Script::click(const Spot& spot, int times, Qt::MouseButton button,
                   Qt::KeyboardModifiers modifiers) {
  if (!spot.find) return;
  const QString what = (modifiers ? u"Shift+"_qs : QString()) +
                       (button == Qt::RightButton ? u"right "_qs : QString()) +
                       (times > 1 ? u"double click "_qs : u"click "_qs) + spot.name;
  const auto place = std::make_shared<std::optional<QPoint>>();
  for (int i = 0; i < times; ++i) {
    add(
        what,
        [=, this, soon = i > 0] {
          if (!soon) *place = spot.find();
          if (*place && !soon) hands_.move(**place);
          if (*place) hands_.press(**place, button, modifiers, soon);
        },
        true);
    add(
        u"release"_qs,
        [=, this] {
          if (*place) hands_.release(**place);
        },
        true);
  }
}

void Script::drag(const Spot& from, const Spot& to) {
  const auto place = std::make_shared<std::optional<QPoint>>();
  add(
      u"press "_qs + from.name,
      [this, place, from] {
        *place = from.find();
        if (*place) hands_.press(**place, Qt::LeftButton, {}, false);
      },
      true);
  add(u"drag to "_qs + to.name, [this, place, to] {
    const auto target = to.find();
    if (!*place || !target) return;
    hands_.move((**place + *target) / 2);
    hands_.move(*target);
    *place = target;
  });
  add(
      u"release"_qs,
      [this, place] {
        if (*place) hands_.release(**place);
      },
      true);
}

void Script::key(int key, Qt::KeyboardModifiers modifiers) {
  const QString name = QKeySequence(key | static_cast<int>(modifiers)).toString();
  const bool mayWrite = mayWriteBy(key, modifiers);
  add(
      u"key "_qs + name, [=, this] { hands_.pressKey(key, modifiers); }, mayWrite);
  add(
      u"key up"_qs, [=, this] { hands_.releaseKey(key, modifiers); }, mayWrite);
}

void Script::type(const QString& text) {
  QString shown = text;
  shown.replace(u'\t', u"⇥"_qs).replace(u'\n', u"⏎"_qs);
  const bool mayWrite = text.contains(u' ');  // presses the button that has the focus
  const qsizetype first = text.front() < QChar(128) ? 1 : text.size();
  add(
      u"type “"_qs + shown + u'”', [=, this] { hands_.type(text.first(first)); }, mayWrite);
  if (first < text.size()) {
    add(
        u"type on"_qs, [=, this] { hands_.type(text.sliced(first)); }, mayWrite);
  }
}

}  // namespace vellora::test
