#pragma once

#include "shell/planner_window.h"

namespace vellora {

// A fixed text on how to use the planner.
class UsageNotesWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit UsageNotesWindow(ApplicationState& state, QWidget* parent = nullptr);
};

}  // namespace vellora
