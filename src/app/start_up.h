#pragma once

#include "app/daily_copy.h"
#include "app/damage_check.h"
#include "board/week_board.h"
#include "shell/application_state.h"
#include "shell/store_wait.h"

#include <memory>

namespace vellora {

// The steps from an empty screen to the board, and what lives as long as the program.
class StartUp {
 public:
  // Opens programDir's schedule, saying so where another program keeps it busy, and reads the skin
  // setting. Throws StoreError.
  StartUp(const QString& programDir, Prompts& prompts, const Clock& clock);

  // Shows the splash window while the board is made, then the board, and says when nothing can be
  // saved. Damage to the schedule is looked for a moment later, and told from the event loop.
  void showBoard();
  // Waits until the schedule has been looked through and copied.
  void finishDamageCheck();

  ApplicationState& state() { return state_; }
  const ApplicationState& state() const { return state_; }
  WeekBoard& board() { return *board_; }

 private:
  bool mayKeepWaiting();
  void reportDamage();
  void warnOfDamage();
  bool copyFirst(QWidget* window);
  void sayNotCopied(const QString& reason);
  void offerLostPlans();

  StoreWait wait_;
  DamageCheck damage_check_;  // asked to make way from the opening of the store on
  DailyCopy daily_copy_;      // likewise
  ScheduleStore store_;
  ApplicationState state_;
  std::unique_ptr<WeekBoard> board_;
};

}  // namespace vellora
