#pragma once

#include "shell/planner_window.h"

class QPlainTextEdit;
class QPushButton;

namespace vellora {

class DateStepper;

// Shows and stores one free text for each date. Picking another date drops what was not stored.
class MemoWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit MemoWindow(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  void load() override;
  bool hasUnsavedTyping() const override;

 private:
  void layOut();
  void ShowMemo();
  void showOtherDay();
  void store();
  void setEditable(bool on);

  DateStepper* days_;
  QPlainTextEdit* text_;
  QPushButton* update_;
};

}  // namespace vellora
