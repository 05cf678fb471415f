#pragma once

#include "shell/application_state.h"

namespace vellora {

class WeekBoard;

// The one place that knows which window each of the board's commands and clicks opens, and after
// which of them the board is rebuilt.
void attachWindows(WeekBoard& board, ApplicationState& state);

}  // namespace vellora
