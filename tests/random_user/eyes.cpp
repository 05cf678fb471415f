#include "random_user/eyes.h"

#include "grid/surface/grid_surface.h"
#include "shell/planner_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>

namespace vellora::test {
namespace {

QWidget* boardOnScreen() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && kindOf(*window) == u"WeekBoard"_qs) return window;
  }
  return nullptr;
}

bool isUsable(const QWidget& control) {
  return control.isVisible() && control.isEnabled() && control.height() > 4 &&
         !control.visibleRegion().isEmpty();
}

}  // namespace

QWidget* front() {
  if (auto* popup = QApplication::activePopupWidget()) return popup;
  if (auto* modal = QApplication::activeModalWidget()) return modal;
  return boardOnScreen();
}

// A dialog may stand over a window that it does not belong to.
PlannerWindow* windowInHand() {
  QWidget* widget = QApplication::activeModalWidget();
  while (widget && !qobject_cast<PlannerWindow*>(widget)) widget = widget->parentWidget();
  if (widget) return qobject_cast<PlannerWindow*>(widget);
  QWidget* board = boardOnScreen();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* found = qobject_cast<PlannerWindow*>(window);
    if (found && found != board && found->isVisible()) return found;
  }
  return qobject_cast<PlannerWindow*>(board);
}

bool isWaiting() {
  const auto windows = QApplication::topLevelWidgets();
  return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->objectName() == u"WorkDialog"_qs && window->isVisible();
  });
}

bool isButtonDown() {
  if (!front()) return false;
  const auto buttons = front()->findChildren<QAbstractButton*>();
  return std::any_of(buttons.begin(), buttons.end(), [](auto* button) { return button->isDown(); });
}

QString kindOf(const QWidget& widget) {
  return QString::fromLatin1(widget.metaObject()->className()).section(u"::"_qs, -1);
}

QString nameOf(const QWidget& control) {
  if (!control.objectName().isEmpty()) return control.objectName();
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  return button && !button->text().isEmpty() ? button->text() : kindOf(control);
}

GridSurface* gridOf(const QWidget& window) {
  return window.findChild<GridSurface*>();
}

QWidget* controlNamed(const QWidget& window, const QString& name) {
  auto* control = window.findChild<QWidget*>(name);
  return control && isUsable(*control) ? control : nullptr;
}

std::vector<QWidget*> controlsOf(const QWidget& window) {
  std::vector<QWidget*> controls;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    if (control->window() != &window || !isUsable(*control)) continue;
    const bool isButton = qobject_cast<QAbstractButton*>(control);
    if (isButton || control->focusPolicy() != Qt::NoFocus) controls.push_back(control);
  }
  return controls;
}

QString boxText(const QWidget* widget) {
  const auto* box = qobject_cast<const QMessageBox*>(widget);
  return box ? box->text() : QString();
}

QString textIn(const QWidget& window, const QString& name) {
  const auto* control = window.findChild<QWidget*>(name);
  if (const auto* text = qobject_cast<const QPlainTextEdit*>(control)) return text->toPlainText();
  if (const auto* combo = qobject_cast<const QComboBox*>(control)) return combo->currentText();
  return control ? control->property("text").toString() : QString();
}

QWidget* openCell(const QWidget& window) {
  const auto* grid = gridOf(window);
  if (!grid) return nullptr;
  for (auto* editor : grid->viewport()->findChildren<QPlainTextEdit*>()) {
    if (editor->isVisible()) return editor;
  }
  return nullptr;
}

QStringList rowsOf(const GridSurface& grid) {
  QStringList rows;
  for (int row = 0; row < grid.Rows(); ++row) {
    QStringList cells;
    for (int col = 0; col < grid.Cols(); ++col) cells << grid.GetCellText(col, row);
    const QString texts = cells.join(u'|');
    rows << (texts.count(u'|') == texts.size() ? QString() : texts);
  }
  while (!rows.isEmpty() && rows.last().isEmpty()) rows.removeLast();
  return rows;
}

}  // namespace vellora::test
