#include "keyboard_journey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

namespace vellora::test {

KeyboardJourney::KeyboardJourney() {
  start_up_.showBoard();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&start_up_.board()));
}

void KeyboardJourney::inWindow(const QString& button, const Work& work) {
  tabTo(button);
  inWindowOpenedBy([] { press(Qt::Key_Space); }, work);
}

// The window's own event loop runs inside `keys`; the user waits there until it stands in front.
void KeyboardJourney::inWindowOpenedBy(const Work& keys, const Work& work) {
  QWidget* opener = &front();
  bool isOpened = false;
  QTimer eyes;
  QObject::connect(&eyes, &QTimer::timeout, &eyes, [&] {
    QWidget* window = QApplication::activeModalWidget();
    if (!window || window == opener || !window->isActiveWindow()) return;
    eyes.stop();
    isOpened = true;
    work();
    if (window->isVisible()) press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible()) << "the window does not close";
    window->close();
  });
  eyes.start(1);
  keys();
  EXPECT_TRUE(isOpened) << "no window opened";
  opener->activateWindow();  // as a desktop does by itself
  EXPECT_TRUE(QTest::qWaitForWindowActive(opener));
}

QWidget& KeyboardJourney::front() {
  return *QApplication::activeWindow();
}

void KeyboardJourney::press(int key, Qt::KeyboardModifiers modifiers, int times) {
  while (times-- > 0) QTest::keyClick(front().windowHandle(), Qt::Key(key), modifiers);
}

void KeyboardJourney::type(const QString& text) {
  for (const QChar letter : text) {
    const int key = letter == u'\t' ? Qt::Key_Tab : letter == u'\n' ? Qt::Key_Return : 0;
    QTest::sendKeyEvent(QTest::Click, front().windowHandle(), Qt::Key(key), QString(letter),
                        Qt::NoModifier);
  }
}

// A button that is pressed so stays down for a moment before it acts.
void KeyboardJourney::alt(char letter) {
  bool hasActed = false;
  QObject eyes;
  for (const auto* button : front().findChildren<QAbstractButton*>()) {
    QObject::connect(button, &QAbstractButton::clicked, &eyes, [&hasActed] { hasActed = true; });
  }
  press(Qt::Key(letter), Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&hasActed] { return hasActed; }))
      << "Alt+" << letter << " presses nothing";
}

// In a grid that is typed into Tab goes from cell to cell, and with Ctrl out of it.
void KeyboardJourney::tabTo(const QString& name) {
  constexpr int kMoreThanAnyWindowHas = 40;
  for (int i = 0; i < kMoreThanAnyWindowHas; ++i) {
    const QWidget* focus = QApplication::focusWidget();
    if (focus && focus->objectName() == name) return;
    const bool isInGrid = qobject_cast<const GridSurface*>(focus) != nullptr;
    press(Qt::Key_Tab, isInGrid ? Qt::ControlModifier : Qt::NoModifier);
  }
  FAIL() << name.toStdString() << " is not reached";
}

void KeyboardJourney::pressButton(const QString& name) {
  tabTo(name);
  press(Qt::Key_Space);
}

QString KeyboardJourney::cell(int col, int row) {
  return front().findChild<GridSurface*>()->GetCellText(col, row).replace(u'\r', u'/');
}

QString KeyboardJourney::text(const QString& field) {
  return front().findChild<QWidget*>(field)->property("text").toString();
}

}  // namespace vellora::test
