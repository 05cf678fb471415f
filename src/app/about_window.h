#pragma once

#include "shell/planner_window.h"

class QLayout;
class QPushButton;

namespace vellora {

// Tells what the program is and lets the user choose the skin of its windows.
class AboutWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit AboutWindow(ApplicationState& state, QWidget* parent = nullptr);

 private:
  QLayout* layOutTexts();
  QLayout* layOutButtons();
  QPushButton* makeButton(const QString& objectName, const QString& caption);

  void chooseSkin();
  bool takeSkin(const QString& path);
};

}  // namespace vellora
