#include "planning/week_count_keys.h"

#include "schedule/plan_repetition.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace vellora {

WeekCountKeys::WeekCountKeys(QLineEdit& box) : QObject(&box), box_(box) {
  box.installEventFilter(this);
}

bool WeekCountKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) beforeKey(static_cast<QKeyEvent*>(event)->key());
  return QObject::eventFilter(watched, event);
}

// A count that had to be mended is selected, so that a digit replaces it.
void WeekCountKeys::beforeKey(int key) {
  const int change = key == Qt::Key_Up ? 1 : key == Qt::Key_Down ? -1 : 0;
  const QString weeks = boundedWeeks(box_.text(), change);
  if (weeks == box_.text()) return;
  box_.setText(weeks);
  box_.selectAll();
}

}  // namespace vellora
