// Lives a user's life with the whole program on a schedule of its own, and tells on standard output
// every deed before it is done and every fault found; hunt.py sends it into many lives.
//
//   random_user --seed 7 --steps 500 [--only 3,17,18]

#include "app/platform.h"
#include "app/start_up.h"
#include "random_user/habits.h"
#include "random_user/screen.h"
#include "random_user/witness.h"
#include "shell/box_prompts.h"
#include "shell/planner_window.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <SQLiteCpp/Exception.h>
#include <cstdio>
#include <set>
#include <unistd.h>

namespace vellora::test {
namespace {

constexpr qint64 kButtonTime = 500;  // milliseconds; a button that is down for longer stays so

const QDate kToday(2026, 3, 10);

// Enough of everything for all windows to have something to do.
void makeUp(ScheduleBuilder& schedule) {
  schedule.fullDay(6).items(5).fullPlan(kToday.addDays(-2), 5, 4, 3);
  schedule.item(u"003"_qs, u"同号的活动"_qs, u"2-学习"_qs);
  schedule.memo(kToday, u"带伞\n还书"_qs).memo(kToday.addDays(3), u"体检"_qs);
  for (int week = 0; week < 3; ++week) {
    const QDate first = kToday.addDays(7 * week - 1);
    schedule.weekName(first, first.addDays(6), u"第%1周"_qs.arg(week + 1));
  }
}

class RandomUser {
 public:
  // Takes only the steps named; all when there are none.
  RandomUser(quint64 seed, int steps, std::set<int> only);
  // Uses the program, and starts it again whenever it was ended.
  [[noreturn]] void live();

 private:
  void goOn();
  void makeNext();
  void elsewhere(const QString& sql);
  void tell(const QString& fault, const QString& details) const;
  void perform(const Deed& deed);
  [[noreturn]] void leave() const;

  const quint64 seed_;
  const int steps_;
  const std::set<int> only_;
  ScheduleBuilder schedule_;
  Witness witness_;
  Hands hands_;
  Script script_{hands_, {}};
  QTimer next_;
  int step_ = -1;
  int deed_ = 0;
  QElapsedTimer since_;  // the last deed
  // The event loop from which a deed is done. Until it is done, or has begun a loop of its own, the
  // program is at work and takes no input.
  int acting_at_ = 0;
  int patience_ = 0;  // rounds that the front window was waited for to be active
  bool has_acted_ = false;
};

void say(const char* what, const QString& text) {
  std::printf("%s\t%s\n", what, text.toUtf8().constData());
  std::fflush(stdout);
}

RandomUser::RandomUser(quint64 seed, int steps, std::set<int> only)
    : seed_(seed),
      steps_(steps),
      only_(std::move(only)),
      witness_((makeUp(schedule_), schedule_.path()),
               [this](const QString& fault, const QString& details) { tell(fault, details); }) {
  for (const QString& skin : {u"KTZ0.SKN"_qs, u"KTZ1.SKN"_qs}) {
    QFile::copy(QStringLiteral(SKIN_DIR) + u'/' + skin, schedule_.folder() + u'/' + skin);
  }
  qputenv("HOME", schedule_.folder().toLocal8Bit());
  QDir::setCurrent(schedule_.folder());  // where a file without a folder is printed to
  next_.setSingleShot(true);
  QObject::connect(&next_, &QTimer::timeout, &next_, [this] { goOn(); });
}

void RandomUser::live() {
  const FixedClock clock(kToday);
  BoxPrompts prompts;
  while (true) {
    StartUp startUp(schedule_.folder(), prompts, clock);
    startUp.showBoard();
    has_acted_ = false;
    next_.start();
    QApplication::exec();
    next_.stop();
    elsewhere(u"ROLLBACK"_qs);
    witness_.forget();
    script_.deeds.clear();
  }
}

// The timer is set again first: what is done now may last until later deeds have been done.
void RandomUser::goOn() {
  next_.start();
  if (acting_at_ == QThread::currentThread()->loopLevel() && !isWaiting()) return;
  if (!hands_.isHolding() && isButtonDown() && !since_.hasExpired(kButtonTime)) return;
  QWidget* window = front();
  if (!window || !window->windowHandle()) return;
  const bool isPopup = window == QApplication::activePopupWidget();
  if (!isPopup && QGuiApplication::focusWindow() != window->windowHandle() && patience_++ < 3) {
    return window->activateWindow();
  }
  patience_ = 0;
  if (std::exchange(has_acted_, false)) witness_.lookAfter();
  if (script_.deeds.empty()) return makeNext();
  const Deed deed = script_.deeds.front();
  script_.deeds.pop_front();
  perform(deed);
}

void RandomUser::makeNext() {
  do {
    if (++step_ >= steps_) leave();
  } while (!only_.empty() && !only_.contains(step_));
  deed_ = 0;
  Dice dice(seed_, step_);
  makeStep({script_, dice, [this](const QString& sql) { elsewhere(sql); }});
}

// Nothing happens where it cannot, such as ending a save that is none.
void RandomUser::elsewhere(const QString& sql) {
  try {
    schedule_.sql(sql);
  } catch (const SQLite::Exception&) {
    return;
  }
  witness_.lookAway();
}

void RandomUser::tell(const QString& fault, const QString& details) const {
  say("FAULT", u"%1\t%2\t%3"_qs.arg(step_).arg(fault, details));
}

void RandomUser::perform(const Deed& deed) {
  const QString kind = windowInHand() ? kindOf(*windowInHand()) : u"?"_qs;
  const QString where = front() == windowInHand() ? kind : kind + u'/' + kindOf(*front());
  say("DEED", u"%1.%2\t%3\t%4"_qs.arg(step_).arg(deed_++).arg(where, deed.what));
  witness_.lookBefore(deed.mayWrite);
  has_acted_ = true;
  since_.start();
  const int before = std::exchange(acting_at_, QThread::currentThread()->loopLevel());
  deed.act();
  acting_at_ = before;
}

void RandomUser::leave() const {
  say("DONE", QString::number(step_));
  QDir(schedule_.folder()).removeRecursively();
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace
}  // namespace vellora::test

int main(int argc, char** argv) {
  QHashSeed::setDeterministicGlobalSeed();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  vellora::setUpPlatform(application);
  QCommandLineParser options;
  options.addOptions({{u"seed"_qs, u"of the chances"_qs, u"number"_qs, u"1"_qs},
                      {u"steps"_qs, u"in all"_qs, u"number"_qs, u"500"_qs},
                      {u"only"_qs, u"these steps"_qs, u"numbers"_qs}});
  options.process(application);
  std::set<int> only;
  for (const QString& step : options.value(u"only"_qs).split(u',', Qt::SkipEmptyParts)) {
    only.insert(step.toInt());
  }
  vellora::test::RandomUser user(options.value(u"seed"_qs).toULongLong(),
                                 options.value(u"steps"_qs).toInt(), only);
  user.live();
}
