#include "app/start_up.h"

#include "app/attach_windows.h"
#include "app/splash_window.h"
#include "store/statements.h"

#include <QTimer>

namespace vellora {
namespace {

constexpr std::chrono::milliseconds kSettled(500);  // from the start on
constexpr std::chrono::seconds kPatience(5);

QString schedulePath(const QString& programDir) {
  return programDir + u"/SY.mdb"_qs;
}

// The stored path as it stands, or the default skin beside the executable.
QString readSkinPath(ScheduleStore& store, const QString& programDir) {
  auto setting = store.open(statements::skinSetting());
  return setting.isEmpty() ? programDir + u"/KTZ0.SKN"_qs : setting.text(u"jm");
}

}  // namespace

StartUp::StartUp(const QString& programDir, Prompts& prompts, const Clock& clock)
    : look_(schedulePath(programDir), [this] { tellOfDamage(); }),
      store_(schedulePath(programDir), kPatience, [this] { return waitGoesOn(); }),
      state_{store_, prompts, clock, programDir, readSkinPath(store_, programDir), QString()} {}

// What is waited for may be this program's own look.
bool StartUp::waitGoesOn() {
  look_.makeWay();
  return wait_.goesOn();
}

void StartUp::showBoard() {
  {
    SplashWindow splash(state_.SkinPath);
    splash.show();
    splash.repaint();
    board_ = std::make_unique<WeekBoard>(state_);
    attachWindows(*board_, state_);
    board_->Load();
    board_->Show();
  }
  // The board comes first.
  QTimer::singleShot(kSettled, board_.get(), [this] { look_.begin(); });
  if (store_.isReadOnly()) {
    state_.prompts.warn(board_.get(),
                        u"日程文件或所在文件夹只能读取，不能写入，所做的更改将无法保存。"_qs);
  }
}

// On the look's own thread.
void StartUp::tellOfDamage() {
  QMetaObject::invokeMethod(
      &wait_, [this] { warnOfDamage(); }, Qt::QueuedConnection);
}

void StartUp::finishLook() {
  look_.begin();
  look_.finish();
}

void StartUp::warnOfDamage() {
  state_.prompts.warn(
      board_.get(),
      u"日程文件 SY.mdb 已损坏，部分内容可能读不出来。请先把它复制一份保存好，再从备份恢复。"_qs);
}

}  // namespace vellora
