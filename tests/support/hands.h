#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

namespace vellora {
class GridSurface;
class PlannerWindow;
}  // namespace vellora

// The user's hands and eyes on the window in front. Controls are found by object name; one that is
// not there fails the test and ends it.
namespace vellora::test {

QWidget& front();
// Loads and shows a window and waits until it is in front.
void open(PlannerWindow& window);
// Opens a window that returns only when it has closed, by whatever `opening` does, and works in it
// as soon as it is in front. Escape leaves it unless the work has closed it.
void inWindowOpenedBy(const std::function<void()>& opening, const std::function<void()>& work);

template <typename Control>
Control& control(const QString& name);
QWidget& control(const QString& name);
// Of a label, a field, a button or a text box.
QString text(const QString& name);

// Keys go where the focus is.
void press(int key, Qt::KeyboardModifiers modifiers = {}, int times = 1);
// Blanks, tabs, line breaks, ↑ and ↓ in the text are those keys.
void type(const QString& text);
// Goes there by Tab alone first.
void type(const QString& name, const QString& text);
// Text as an input method hands it over.
void commit(const QString& text);
// Alt and the letter that a caption underlines; returns when the button has acted.
void alt(char letter);
// Goes there by Tab alone, out of a grid by Ctrl+Tab.
void tabTo(const QString& name);

// A button, or any other control.
void click(const QString& name);
// A line of a list.
void click(const QString& list, int line);
void doubleClick(const QString& list, int line);
QStringList lines(const QString& list);

// The window's grid. Row -1 is its heading strip.
GridSurface& grid();
QString cell(int col, int row);
// The texts of a row, joined by bars; line breaks as slashes.
QString row(int row);
void clickCell(int col, int row, Qt::KeyboardModifiers modifiers = {});
void doubleClickCell(int col, int row);
void rightClickCell(int col, int row);
void dragCell(int col, int row, int toCol, int toRow, Qt::KeyboardModifiers modifiers = {});
// Opens a cell, replaces its text and ends with Enter.
void typeCell(int col, int row, const QString& text);
// Whether a row is shown as not saved yet.
bool isMarked(int row);

template <typename Control>
Control& control(const QString& name) {
  return dynamic_cast<Control&>(control(name));
}

}  // namespace vellora::test
