#include "support/hands.h"

#include "grid/surface/grid_surface.h"
#include "shell/planner_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QListWidget>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>

namespace vellora::test {

namespace {

const std::map<QChar, int> kKeys{{u'\t', Qt::Key_Tab},
                                 {u'\n', Qt::Key_Return},
                                 {u' ', Qt::Key_Space},
                                 {u'↑', Qt::Key_Up},
                                 {u'↓', Qt::Key_Down}};

QRect rectOf(int col, int row) {
  if (row < 0) {
    QHeaderView& heading = *grid().horizontalHeader();
    return {heading.sectionViewportPosition(col), 0, heading.sectionSize(col), heading.height()};
  }
  const QModelIndex index = grid().model()->index(row, col);
  grid().scrollTo(index);
  return grid().visualRect(index);
}

QWidget& viewportOf(int row) {
  return row < 0 ? *grid().horizontalHeader()->viewport() : *grid().viewport();
}

// Without moving events of the pointer no item view begins to drag.
void moveTo(QPoint place, Qt::KeyboardModifiers modifiers) {
  QWidget& viewport = *grid().viewport();
  QMouseEvent move(QEvent::MouseMove, place, viewport.mapToGlobal(place), Qt::LeftButton,
                   Qt::LeftButton, modifiers);
  QApplication::sendEvent(&viewport, &move);
}

}  // namespace

QWidget& front() {
  QWidget* window = QApplication::activeWindow();
  if (!window) throw std::runtime_error("no window is in front");
  return *window;
}

void open(PlannerWindow& window) {
  window.Load();
  window.Show();
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

void inWindowOpenedBy(const std::function<void()>& opening, const std::function<void()>& work) {
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
    if (!window->isVisible()) return;
    ADD_FAILURE() << "the window does not close";
    if (auto* stubborn = qobject_cast<PlannerWindow*>(window)) emit stubborn->closed();
    window->close();
  });
  eyes.start(1);
  opening();
  EXPECT_TRUE(isOpened) << "no window opened";
  opener->activateWindow();  // as a desktop does by itself
  EXPECT_TRUE(QTest::qWaitForWindowActive(opener));
}

QWidget& control(const QString& name) {
  auto* found = front().findChild<QWidget*>(name);
  if (!found) throw std::runtime_error("no control " + name.toStdString());
  return *found;
}

QString text(const QString& name) {
  const QWidget& holder = control(name);
  const QVariant plain = holder.property("plainText");
  return plain.isValid() ? plain.toString() : holder.property("text").toString();
}

void press(int key, Qt::KeyboardModifiers modifiers, int times) {
  while (times-- > 0) QTest::keyClick(front().windowHandle(), Qt::Key(key), modifiers);
}

void type(const QString& text) {
  for (const QChar letter : text) {
    if (const auto key = kKeys.find(letter); key != kKeys.end()) {
      press(key->second);
    } else {
      QTest::sendKeyEvent(QTest::Click, front().windowHandle(), Qt::Key(0), QString(letter),
                          Qt::NoModifier);
    }
  }
}

void type(const QString& name, const QString& text) {
  tabTo(name);
  type(text);
}

void commit(const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
}

void alt(char letter) {
  bool hasActed = false;
  QObject eyes;
  for (const auto* button : front().findChildren<QAbstractButton*>()) {
    QObject::connect(button, &QAbstractButton::clicked, &eyes, [&hasActed] { hasActed = true; });
  }
  press(Qt::Key(letter), Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&hasActed] { return hasActed; })) << "Alt+" << letter;
}

void tabTo(const QString& name) {
  constexpr int kMoreThanAnyWindowHas = 40;
  for (int i = 0; i < kMoreThanAnyWindowHas; ++i) {
    const QWidget* focus = QApplication::focusWidget();
    if (focus && focus->objectName() == name) return;
    const bool isInGrid = qobject_cast<const GridSurface*>(focus) != nullptr;
    press(Qt::Key_Tab, isInGrid ? Qt::ControlModifier : Qt::NoModifier);
  }
  FAIL() << name.toStdString() << " is not reached";
}

void click(const QString& name) {
  QTest::mouseClick(&control(name), Qt::LeftButton);
}

void click(const QString& list, int line) {
  auto& items = control<QListWidget>(list);
  QTest::mouseClick(items.viewport(), Qt::LeftButton, {},
                    items.visualItemRect(items.item(line)).center());
}

void doubleClick(const QString& list, int line) {
  click(list, line);
  auto& items = control<QListWidget>(list);
  QTest::mouseDClick(items.viewport(), Qt::LeftButton, {},
                     items.visualItemRect(items.item(line)).center());
}

QStringList lines(const QString& list) {
  QStringList texts;
  const auto& items = control<QListWidget>(list);
  for (int line = 0; line < items.count(); ++line) texts << items.item(line)->text();
  return texts;
}

GridSurface& grid() {
  return control<GridSurface>(QStringLiteral("Cell1"));
}

QString cell(int col, int row) {
  return grid().GetCellText(col, row).replace(u'\r', u'/');
}

QString row(int row) {
  QStringList texts;
  for (int col = 0; col < grid().Cols(); ++col) texts << cell(col, row);
  return texts.join(u'|');
}

void clickCell(int col, int row, Qt::KeyboardModifiers modifiers) {
  QTest::mouseClick(&viewportOf(row), Qt::LeftButton, modifiers, rectOf(col, row).center());
}

void doubleClickCell(int col, int row) {
  clickCell(col, row);
  QTest::mouseDClick(&viewportOf(row), Qt::LeftButton, {}, rectOf(col, row).center());
}

void rightClickCell(int col, int row) {
  QTest::mouseClick(&viewportOf(row), Qt::RightButton, {}, rectOf(col, row).center());
}

void dragCell(int col, int row, int toCol, int toRow, Qt::KeyboardModifiers modifiers) {
  const QPoint from = rectOf(col, row).center();
  const QPoint to = rectOf(toCol, toRow).center();
  QTest::mousePress(grid().viewport(), Qt::LeftButton, modifiers, from);
  moveTo((from + to) / 2, modifiers);
  moveTo(to, modifiers);
  QTest::mouseRelease(grid().viewport(), Qt::LeftButton, modifiers, to);
}

void typeCell(int col, int row, const QString& text) {
  grid().SetCurrentCell(col, row);
  grid().Focus();
  press(Qt::Key_F2);
  press(Qt::Key_A, Qt::ControlModifier);
  commit(text);
  press(Qt::Key_Return);
  QCoreApplication::processEvents();
}

bool isMarked(int row) {
  QCoreApplication::processEvents();
  const auto& marks = grid().markedRows();
  return std::any_of(marks.begin(), marks.end(),
                     [row](const auto& mark) { return mark.row == row; });
}

}  // namespace vellora::test
