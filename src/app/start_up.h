#pragma once

#include "board/week_board.h"
#include "shell/application_state.h"
#include "shell/store_wait.h"

#include <memory>
#include <thread>

namespace vellora {

// The steps from an empty screen to the board, and what lives as long as the program.
class StartUp {
 public:
  // Opens programDir's schedule and reads the skin setting. Throws StoreError.
  StartUp(const QString& programDir, Prompts& prompts, const Clock& clock);
  ~StartUp();

  // Shows the splash window while the board is made, then the board, and says when nothing can be
  // saved. Damage to the schedule is looked for meanwhile, and told from the event loop.
  void showBoard();
  // Waits until the schedule has been looked through.
  void finishLook();

  ApplicationState& state() { return state_; }
  const ApplicationState& state() const { return state_; }
  WeekBoard& board() { return *board_; }

 private:
  void lookForDamage();
  void warnOfDamage();

  StoreWait wait_;
  ScheduleStore store_;
  ScheduleStore looked_through_;  // the same file once more, for the other thread
  ApplicationState state_;
  std::unique_ptr<WeekBoard> board_;
  std::thread look_;
};

}  // namespace vellora
