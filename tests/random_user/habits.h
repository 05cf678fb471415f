#pragma once

#include "random_user/dice.h"
#include "random_user/script.h"

namespace vellora::test {

// What a step may lay hands on.
struct Step {
  Script& script;
  Dice& dice;
  // The program at another desk does something to the tables, which is no fault of this one.
  std::function<void(const QString& sql)> elsewhere;
  std::function<void(const QString& fault, const QString& details)> tell;
};

// Makes up the next step in front of what stands on the screen.
void makeStep(const Step& step);

}  // namespace vellora::test
