#pragma once

class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QVBoxLayout;
class QWidget;

namespace vellora {

class Clock;
class CountField;
class DateStepper;
class GridSurface;

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
  QPushButton* byWeek;
  QPushButton* open;
  QPushButton* save;
  QPushButton* remove;
  QPushButton* close;
};

}  // namespace vellora
