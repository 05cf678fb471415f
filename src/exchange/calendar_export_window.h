#pragma once

#include "schedule/calendar_export.h"
#include "shell/planner_window.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;

namespace vellora {

class DatePicker;

// Writes a week, an activity or a range of days as a calendar file; closes when that is done.
class CalendarExportWindow : public PlannerWindow {
  Q_OBJECT

 public:
  // The week begins on that day; the activity is proposed, if there is one.
  CalendarExportWindow(ApplicationState& state, QDate firstDay, const QString& activity,
                       QWidget* parent = nullptr);

 protected:
  void onLoad() override;

 private:
  enum Scope { Week, Activity, Days };

  void layOut();
  QFormLayout* makeForm();
  QWidget* makeReminder();
  void showScope();
  void proposeFile();
  CalendarSelection selection() const;
  QString file() const;
  void exportFile();
  void tell(const CalendarCounts& counts);

  QDate first_day_;
  QString activity_;
  QComboBox* scope_;
  QComboBox* activities_;
  DatePicker* first_;
  DatePicker* last_;
  QCheckBox* memos_;
  QCheckBox* reminds_;
  QSpinBox* minutes_;
  QLineEdit* path_;
  QString proposed_;  // the file, while the user has not named another one
};

}  // namespace vellora
