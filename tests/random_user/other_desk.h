#pragma once

#include "random_user/habits.h"

namespace vellora::test {

// The program at another desk adds, changes or deletes rows.
void changeOtherDesk(const Step& step);
// A window of the board is opened while the other program saves; the user waits, or does not.
void openWhileLocked(const Step& step);

}  // namespace vellora::test
