#pragma once

#include "random_user/script.h"

#include <iterator>
#include <random>

namespace vellora::test {

// The chances of one step. Each step throws dice of its own, so that others can be left out and it
// still does the same.
class Dice {
 public:
  Dice(quint64 seed, int step) : engine_(seed * 1'000'003 + static_cast<quint64>(step)) {
    engine_.discard(4);
  }

  int below(int count) { return static_cast<int>(engine_() % static_cast<quint64>(count)); }
  bool oneIn(int count) { return below(count) == 0; }
  template <typename List>
  const auto& pick(const List& list) {
    return std::begin(list)[below(static_cast<int>(std::size(list)))];
  }

 private:
  std::mt19937_64 engine_;
};

// What a step may lay hands on.
struct Step {
  Script& script;
  Dice& dice;
  // The program at another desk does something to the tables, which is no fault of this one.
  std::function<void(const QString& sql)> elsewhere;
};

// Makes up the next step in front of what stands on the screen.
void makeStep(const Step& step);

}  // namespace vellora::test
