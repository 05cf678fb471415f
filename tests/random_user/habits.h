#pragma once

#include "random_user/dice.h"
#include "random_user/script.h"

namespace vellora::test {

// What a step may lay hands on beside the program.
struct Surroundings {
  OtherProgram& other;
  // Changes by another program are no fault of this one.
  std::function<void()> lookAway;
  std::function<void(const QString& fault, const QString& details)> tell;
};

// What people do in one go.
struct Step {
  Script& script;
  Dice& dice;
  const Surroundings& around;

  Spot anyCell(int cols, int rows) const { return cell(dice.below(cols), dice.below(rows)); }
};

// Makes up the next step in front of what stands on the screen.
void makeStep(const Step& step);

}  // namespace vellora::test
