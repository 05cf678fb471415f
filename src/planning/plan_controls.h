#pragma once

#include <QString>

#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QVBoxLayout;
class QWidget;

// The controls of the planning windows.
namespace vellora {

class Clock;
class CountField;
class DateStepper;
class GridSurface;

// A list in the face that the planner lists texts in.
QListWidget* makeNameList(const QString& objectName, const QString& accessibleName,
                          QWidget* parent);

// Double-clicking a line, or Enter on the current one, places it: `place` gets its position.
void placeFromList(QListWidget& list, const std::function<void(int position)>& place);

// "(双击完成操作)", for the list that it stands beside.
QLabel* makePlacingHint(QListWidget& list);

// Takes over what is being typed into a cell, as leaving the cell would.
void finishTyping(GridSurface& grid);

// What stands on the activity plan window, laid out in reading order: the activities, the day with
// its blocks and what is planned on it, the plan grid with what is done to it, and at its foot what
// the window has to tell about it.
struct ActivityPlanControls {
  ActivityPlanControls(const Clock& clock, QWidget* window);

  QListWidget* activities;
  QLineEdit* chosen;
  DateStepper* day;
  QListWidget* blocks;
  QPlainTextEdit* summary;
  GridSurface* grid;
  QVBoxLayout* foot;  // above the buttons, for what the window tells
  CountField* days;
  QPushButton* byDay;
  CountField* weeks;
  QSpinBox* everyWeeks;
  QPushButton* byWeek;
  QPushButton* open;
  QPushButton* save;
  QPushButton* remove;
  QPushButton* close;
};

}  // namespace vellora
