// Every window of the program over the demonstration schedule, opened from the board as a user
// opens it: what assistive tools read, where the Tab key goes, whether captions have room.

#include "app/platform.h"
#include "app/start_up.h"
#include "board/command_bar.h"
#include "reach/looks.h"
#include "sample_schedule.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>
#include <variant>

namespace vellora {
namespace {

// Nothing for the board itself, a command of its bar, or the name of one of its menu.
using Opening = std::variant<std::monostate, BoardCommand, QString>;

class Window : public testing::TestWithParam<Opening> {
 protected:
  Window() {
    {
      ScheduleStore store = schedule_.store();
      writeDemonstration(store, clock_.today());
    }
    schedule_.skin(QStringLiteral(SKIN_DIR "/KTZ0.SKN"));
    const QString calendar = schedule_.folder() + QStringLiteral("/a.ics");
    test::writeBytes(calendar,
                     "BEGIN:VCALENDAR\nBEGIN:VEVENT\nDTSTART:20070305T080000\nSUMMARY:New\nRRULE:"
                     "FREQ=DAILY;COUNT=9\nEND:VEVENT\nBEGIN:VEVENT\nDTSTART:20070305\nSUMMARY:Day\n"
                     "END:VEVENT\nEND:VCALENDAR\n");
    prompts_.files << calendar;
    start_up_ = std::make_unique<StartUp>(schedule_.folder(), prompts_, clock_);
    start_up_->showBoard();
  }

  WeekBoard& board() { return start_up_->board(); }

  // At what it shows after its first command.
  void lookAt(QWidget& window) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const auto& [kind, name] : {std::pair(u"StatisticsWindow"_qs, u"Command1"_qs),
                                     std::pair(u"BackupWindow"_qs, u"cmdO"_qs)}) {
      if (window.objectName() == kind) window.findChild<QPushButton*>(name)->click();
    }
    QCoreApplication::processEvents();
    test::expectReadable(window);
    test::expectReachedByKeys(window);
    test::expectRoomForTexts(window);
    ++seen_;
  }

  int seen_ = 0;

 private:
  test::ScheduleBuilder schedule_;
  test::ScriptedPrompts prompts_;
  test::FixedClock clock_{QDate(2007, 3, 5)};
  std::unique_ptr<StartUp> start_up_;
};

TEST_P(Window, IsReadReachedAndSeenWhole) {
  if (std::holds_alternative<std::monostate>(GetParam())) return lookAt(board());
  QTimer::singleShot(0, &board(), [&] {
    QWidget* window = QApplication::activeModalWidget();
    ASSERT_NE(window, nullptr);
    lookAt(*window);
    window->close();
  });
  if (const auto* command = std::get_if<BoardCommand>(&GetParam())) {
    board().findChild<CommandBar*>()->button(*command).click();
  } else {
    board().findChild<QAction*>(std::get<QString>(GetParam()))->trigger();
  }
  EXPECT_EQ(seen_, 1);
}

INSTANTIATE_TEST_SUITE_P(Every, Window,
                         testing::Values(Opening(), BoardCommand::DailyPlan,
                                         BoardCommand::ActivityPlan, BoardCommand::Statistics,
                                         BoardCommand::TimeBlocks, BoardCommand::ActivityItems,
                                         BoardCommand::Memo, BoardCommand::WeekNames,
                                         BoardCommand::Backup, BoardCommand::UsageNotes,
                                         BoardCommand::About, QStringLiteral("ExportCalendar"),
                                         QStringLiteral("ImportCalendar")));

}  // namespace
}  // namespace vellora

// With the program's own style, faces and language.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  vellora::setUpPlatform(application);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
