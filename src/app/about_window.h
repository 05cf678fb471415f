#pragma once

#include "shell/planner_window.h"

class QLayout;

namespace vellora {

// Tells what the program is and lets the user choose the skin of its windows.
class AboutWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit AboutWindow(ApplicationState& state, QWidget* parent = nullptr);

 private:
  QLayout* layOutTexts();
  QLayout* layOutButtons();

  void chooseSkin();
  bool storeSkin(const QString& path);
};

}  // namespace vellora
