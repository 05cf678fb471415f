#pragma once

#include "board/command_bar.h"

#include <QWidget>

#include <array>

class QPushButton;

namespace vellora {

struct ApplicationState;

// What to do first in a schedule, one step after the other; says which are done. It goes for good
// when the schedule is well begun, or when the user puts it away.
class FirstSteps : public QWidget {
  Q_OBJECT

 public:
  FirstSteps(ApplicationState& state, QWidget* parent);

  // Whether they were never put away.
  static bool areOpen(ApplicationState& state);
  // Shows what is done, when the schedule needs it. Throws StoreError.
  void showDone();

 signals:
  void chosen(BoardCommand command);

 private:
  void putAway();

  ApplicationState& state_;
  std::array<QPushButton*, 3> steps_{};
  bool is_away_ = false;
};

}  // namespace vellora
