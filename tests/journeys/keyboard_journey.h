#pragma once

#include "app/start_up.h"
#include "grid/surface/grid_surface.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/text_output.h"

#include <QTest>

#include <functional>
#include <gtest/gtest.h>

namespace vellora::test {

inline const QDate kMonday(2007, 3, 5);

// The whole program on an empty schedule, in the hands of a user who has a keyboard only. Nothing
// here reaches a control but keys that are sent to the window in front.
class KeyboardJourney : public testing::Test {
 protected:
  KeyboardJourney();

  // Tabs to the control of that name and presses Space; a window that opens is worked in, and left
  // by `work` itself or else by Escape.
  using Work = std::function<void()>;
  void inWindow(const QString& button, const Work& work);
  // The same with whatever key or keys open the window.
  void inWindowOpenedBy(const Work& keys, const Work& work);

  static void press(int key, Qt::KeyboardModifiers modifiers = {}, int times = 1);
  // A tab in the text is the Tab key, a line break Enter.
  static void type(const QString& text);
  // Alt and the letter that a caption underlines.
  static void alt(char letter);
  static void tabTo(const QString& name);
  static void pressButton(const QString& name);

  static QWidget& front();
  static QString title() { return front().windowTitle(); }
  static QString cell(int col, int row);
  static QString text(const QString& field);

  ScheduleBuilder schedule_;
  ScriptedPrompts prompts_;
  FixedClock clock_{kMonday};
  StartUp start_up_{schedule_.folder(), prompts_, clock_};
};

}  // namespace vellora::test
