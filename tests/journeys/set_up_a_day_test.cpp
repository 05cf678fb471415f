// A new user divides the day, names the weeks of a term and notes something for today; the week
// board shows all of it.

#include "board/week_board.h"
#include "editors/memo_window.h"
#include "editors/time_block_editor.h"
#include "editors/week_name_editor.h"
#include "grid/surface/grid_surface.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/text_output.h"

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace vellora {
namespace {

const QDate kMonday(2007, 3, 5);

class SetUpADay : public testing::Test {
 protected:
  SetUpADay() {
    attach<TimeBlockEditor>(BoardCommand::TimeBlocks);
    attach<WeekNameEditor>(BoardCommand::WeekNames);
    attach<MemoWindow>(BoardCommand::Memo);
    board_.Load();
    board_.Show();
  }

  template <typename Window>
  void attach(BoardCommand command) {
    board_.attachCommand(command, [this] {
      Window window(state_, &board_);
      window.Load();
      QTimer::singleShot(0, &window, [&] { work_(window); });
      window.ShowModal();
    });
  }

  // Opens a window from the board, does something in it and closes it.
  void inWindow(const QString& command, std::function<void(QWidget&)> work) {
    work_ = [work = std::move(work)](QWidget& window) {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
      work(window);
      press(window, u"CmdEND"_qs);
    };
    press(board_, command);
  }
  static void press(QWidget& window, const QString& button) {
    QTest::mouseClick(window.findChild<QPushButton*>(button), Qt::LeftButton);
  }
  static void type(QWidget& window, const QString& text) {
    for (const QChar letter : text) {
      const int key = letter == u'\t' ? Qt::Key_Tab : letter == u'\n' ? Qt::Key_Return : 0;
      QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key(key), QString(letter),
                          Qt::NoModifier);
    }
  }
  QString board(int col, int row) {
    return board_.findChild<GridSurface*>(u"Cell1"_qs)->GetCellText(col, row);
  }

  test::ScheduleBuilder schedule_;
  ScheduleStore store_ = schedule_.store();
  test::ScriptedPrompts prompts_;
  test::FixedClock clock_{kMonday};
  ApplicationState state_{
      store_,   prompts_, clock_, schedule_.folder(), schedule_.folder() + u"/none.skn"_qs,
      QString()};
  WeekBoard board_{state_};
  std::function<void(QWidget&)> work_;
};

}  // namespace

TEST_F(SetUpADay, FromAnEmptyScheduleToAFullBoard) {
  inWindow(u"Command5"_qs, [](QWidget& blocks) {
    type(blocks, u"13:30\t15:00\tb\t下午\t8:00\t11:30\ta\t上午\t"_qs);
    press(blocks, u"cmdSV"_qs);
  });
  inWindow(u"Command7"_qs, [](QWidget& names) {
    press(names, u"CmdBR"_qs);
    type(names, u"第一周\n"_qs);
    press(names, u"cmdSV"_qs);
  });
  inWindow(u"Command6"_qs, [](QWidget& memo) {
    type(memo, u"交报告"_qs);
    press(memo, u"CmdSV"_qs);
  });
  EXPECT_EQ(prompts_.warnings, QStringList({u"保存完毕!"_qs, u"保存完毕!"_qs}));
  EXPECT_EQ(board(0, 1), QString()) << "the board keeps its rows until it is built anew";

  board_.setRedrawFlag();
  board_.Activate();
  EXPECT_EQ(board(0, 1), u"08:00-11:30\r上午"_qs);
  EXPECT_EQ(board(0, 2), u"13:30-15:00\r下午"_qs);
  EXPECT_EQ(board_.findChild<QLabel*>(u"Lmm"_qs)->text(), u"第一周"_qs);
  EXPECT_TRUE(board_.windowTitle().endsWith(u"交报告"_qs));
  press(board_, u"Cm4"_qs);
  EXPECT_EQ(board_.findChild<QLabel*>(u"Lmm"_qs)->text(), QString());
}

}  // namespace vellora
