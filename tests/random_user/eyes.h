#pragma once

#include <QString>
#include <QWidget>

#include <vector>

namespace vellora {
class GridSurface;
class PlannerWindow;
}  // namespace vellora

// What the user sees: the windows by kind and name, never their insides.
namespace vellora::test {

// What takes the user's input now: a pop-up, a box, or a window of the planner. Null at the end.
QWidget* front();
// The planner's window in front, or the one behind the box in front.
PlannerWindow* windowInHand();
// The program is at work and shows the box in which that can be given up.
bool isWaiting();
// A button goes down and up, as one does whose letter was pressed, and then does its work.
bool isButtonDown();

// "DailyPlanWindow", "QMessageBox".
QString kindOf(const QWidget& widget);
// Object name, or caption, or kind.
QString nameOf(const QWidget& control);
GridSurface* gridOf(const QWidget& window);
// By object name; null when it is not there or cannot be used.
QWidget* controlNamed(const QWidget& window, const QString& name);
// All that can be clicked or typed into now.
std::vector<QWidget*> controlsOf(const QWidget& window);
// Of a box that tells or asks; empty for anything else.
QString boxText(const QWidget* widget);
// Of an edit, a picker or a combo box.
QString textIn(const QWidget& window, const QString& name);
// The cell editor, while a cell is being typed into.
QWidget* openCell(const QWidget& window);
// The texts of all cells, one text for each row; empty for an empty row, none for those at the end.
QStringList rowsOf(const GridSurface& grid);

}  // namespace vellora::test
