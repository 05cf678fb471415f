#pragma once

#include "editors/table_editor.h"

namespace vellora {

class WeekBar;

// Names the weeks of a term; see week_names.h.
class WeekNameEditor : public TableEditor {
  Q_OBJECT

 public:
  explicit WeekNameEditor(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  void onActivate() override;
  void setTypable(bool on) override;

 private:
  WeekNameEditor(ApplicationState& state, WeekBar* bar, QWidget* parent);
  void addPickedWeek();
  void addTenWeeks();
  void carryName(int leftRow, int enteredRow);

  WeekBar* bar_;
};

}  // namespace vellora
