#pragma once

#include "random_user/dice.h"
#include "random_user/script.h"
#include "random_user/tables.h"

namespace vellora::test {

// What a step may lay hands on.
struct Step {
  Script& script;
  Dice& dice;
  OtherProgram& other;
  // After a change by another program, which is no fault of this one.
  std::function<void()> lookAway;
  std::function<void(const QString& fault, const QString& details)> tell;
};

// Makes up the next step in front of what stands on the screen.
void makeStep(const Step& step);

}  // namespace vellora::test
