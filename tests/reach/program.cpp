#include "program.h"

#include "sample_schedule.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace vellora::test {
namespace {

constexpr BoardCommand kOpening[]{BoardCommand::DailyPlan,     BoardCommand::ActivityPlan,
                                  BoardCommand::Statistics,    BoardCommand::TimeBlocks,
                                  BoardCommand::ActivityItems, BoardCommand::Memo,
                                  BoardCommand::WeekNames,     BoardCommand::Backup,
                                  BoardCommand::UsageNotes,    BoardCommand::About};

// Lets a window show what it shows after its first command.
void fill(QWidget& window) {
  for (const auto& name : {u"Command1"_qs, u"cmdO"_qs}) {
    const bool computes = window.objectName() == u"StatisticsWindow" && name == u"Command1";
    const bool backsUp = window.objectName() == u"BackupWindow" && name == u"cmdO";
    if (computes || backsUp) window.findChild<QPushButton*>(name)->click();
  }
  QCoreApplication::processEvents();
}

}  // namespace

Program::Program() {
  {
    ScheduleStore store = schedule_.store();
    writeDemonstration(store, clock_.today());
  }
  schedule_.skin(QStringLiteral(SKIN_DIR "/KTZ0.SKN"));
  start_up_ = std::make_unique<StartUp>(schedule_.folder(), prompts_, clock_);
  start_up_->showBoard();
}

void Program::lookAtEveryWindow(const Look& look) {
  lookAt(start_up_->board(), look);
  for (const BoardCommand command : kOpening) open(command, look);
}

void Program::lookAt(QWidget& window, const Look& look) {
  SCOPED_TRACE(window.windowTitle().toStdString());
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  fill(window);
  look(window);
}

void Program::open(BoardCommand command, const Look& look) {
  bool isOpened = false;
  QTimer::singleShot(0, &start_up_->board(), [&] {
    QWidget* window = QApplication::activeModalWidget();
    ASSERT_NE(window, nullptr);
    isOpened = true;
    lookAt(*window, look);
    window->close();
  });
  start_up_->board().findChild<CommandBar*>()->button(command).click();
  EXPECT_TRUE(isOpened) << "no window opened";
}

std::string described(const QWidget& control) {
  const QString text = control.property("text").toString();
  return QString(u"%1 %2 “%3”"_qs)
      .arg(QString::fromLatin1(control.metaObject()->className()), control.objectName(), text)
      .toStdString();
}

}  // namespace vellora::test
