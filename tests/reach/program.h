#pragma once

#include "app/start_up.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/text_output.h"

#include <functional>
#include <gtest/gtest.h>

namespace vellora::test {

// The whole program over the demonstration schedule, its windows opened from the board as a user
// opens them.
class Program : public testing::Test {
 protected:
  Program();

  // Looks at the board and then at each window that a command of it opens, while it is open. A
  // failure names the window.
  using Look = std::function<void(QWidget& window)>;
  void lookAtEveryWindow(const Look& look);

 private:
  void lookAt(QWidget& window, const Look& look);
  void open(BoardCommand command, const Look& look);

  ScheduleBuilder schedule_;
  ScriptedPrompts prompts_;
  FixedClock clock_{QDate(2007, 3, 5)};
  std::unique_ptr<StartUp> start_up_;
};

// What the user can see of a kind of control in a window, parts of Qt's own controls included.
template <typename Control>
QList<Control*> shown(const QWidget& window) {
  QList<Control*> controls = window.findChildren<Control*>();
  controls.removeIf([](const Control* control) { return !control->isVisible(); });
  return controls;
}

// Kind, name and text of a control, for the message of a failed check.
std::string described(const QWidget& control);

}  // namespace vellora::test
