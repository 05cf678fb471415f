#pragma once

#include "board/week_board.h"
#include "shell/application_state.h"

#include <memory>

namespace vellora {

// The steps from an empty screen to the board, and what lives as long as the program.
class StartUp {
 public:
  // Opens programDir's schedule and reads the skin setting. Throws StoreError.
  StartUp(const QString& programDir, Prompts& prompts, const Clock& clock);
  ~StartUp();

  // Shows the splash window while the board is made, then the board, and says then what is wrong
  // with the schedule: damage, or that nothing can be saved.
  void showBoard();

  ApplicationState& state() { return state_; }
  const ApplicationState& state() const { return state_; }
  WeekBoard& board() { return *board_; }

 private:
  void warnOfDamage();

  ScheduleStore store_;
  ApplicationState state_;
  std::unique_ptr<WeekBoard> board_;
};

}  // namespace vellora
