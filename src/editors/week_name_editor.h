#pragma once

#include "editors/table_editor.h"

namespace vellora {

class DateStepper;

// Names the weeks of a term; see week_names.h.
class WeekNameEditor : public TableEditor {
  Q_OBJECT

 public:
  explicit WeekNameEditor(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  void onActivate() override;
  void setTypable(bool on) override;

 private:
  WeekNameEditor(ApplicationState& state, QWidget* bar, QWidget* parent);
  void layOutBar();
  void addPickedWeek();
  void addTenWeeks();
  void carryName(int leftRow, int enteredRow);

  QWidget* bar_;  // what adds weeks: the first day of one, and what is done with it
  DateStepper* days_;
};

}  // namespace vellora
