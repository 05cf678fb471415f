#pragma once

#include <functional>

namespace vellora {

// Told now and then how many of the rows are done; false cancels.
using PlanProgress = std::function<bool(int done, int total)>;

}  // namespace vellora
