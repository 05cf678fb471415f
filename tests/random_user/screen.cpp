#include "random_user/screen.h"

#include "grid/surface/grid_surface.h"
#include "shell/planner_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>

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
