#include "app/start_up.h"

#include "app/attach_windows.h"
#include "app/splash_window.h"
#include "store/statements.h"
#include "store/store_error.h"

namespace vellora {
namespace {

// The stored path as it stands, or the default skin beside the executable.
QString readSkinPath(ScheduleStore& store, const QString& programDir) {
  auto setting = store.open(statements::skinSetting());
  return setting.isEmpty() ? programDir + u"/KTZ0.SKN"_qs : setting.text(u"jm");
}

// A schedule that another copy keeps busy cannot be looked through now.
bool isDamaged(const ScheduleStore& store) {
  try {
    return !store.isSound();
  } catch (const StoreError& error) {
    return error.fault() == StoreFault::Damaged;
  } catch (const WorkGivenUp&) {
    return false;  // the program ends
  }
}

}  // namespace

StartUp::StartUp(const QString& programDir, Prompts& prompts, const Clock& clock)
    : store_(programDir + u"/SY.mdb"_qs),
      looked_through_(programDir + u"/SY.mdb"_qs),
      state_{store_, prompts, clock, programDir, readSkinPath(store_, programDir), QString()} {
  store_.setWait([this] { return wait_.goesOn(); });
}

StartUp::~StartUp() {
  looked_through_.interrupt();
  finishLook();
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
  lookForDamage();
  if (store_.isReadOnly()) {
    state_.prompts.warn(board_.get(),
                        u"日程文件或所在文件夹只能读取，不能写入，所做的更改将无法保存。"_qs);
  }
}

// On a connection and a thread of its own: many years of plans take longer than a window may stall.
void StartUp::lookForDamage() {
  look_ = std::thread([this] {
    if (!isDamaged(looked_through_)) return;
    QMetaObject::invokeMethod(
        board_.get(), [this] { warnOfDamage(); }, Qt::QueuedConnection);
  });
}

void StartUp::finishLook() {
  if (look_.joinable()) look_.join();
}

void StartUp::warnOfDamage() {
  state_.prompts.warn(
      board_.get(),
      u"日程文件 SY.mdb 已损坏，部分内容可能读不出来。请先把它复制一份保存好，再从备份恢复。"_qs);
}

}  // namespace vellora
