#pragma once

#include "board/command_bar.h"

#include <QWidget>

#include <array>

class QPushButton;

namespace vellora {

struct ApplicationState;

// What to do first in a schedule that is not set up yet, one step after the other; says which are
// done. It goes for good when all are, or when the user puts it away.
class FirstSteps : public QWidget {
  Q_OBJECT

 public:
  FirstSteps(ApplicationState& state, QWidget* parent);

  // Whether the steps of this schedule are still to be shown.
  static bool areOpen(ApplicationState& state);
  // Shows anew what is done. Throws StoreError.
  void update();

 signals:
  void chosen(BoardCommand command);

 private:
  void putAway();

  ApplicationState& state_;
  std::array<QPushButton*, 3> steps_{};
  bool is_away_ = false;
};

}  // namespace vellora
