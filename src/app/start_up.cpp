#include "app/start_up.h"

#include "app/attach_windows.h"
#include "app/skin_setting.h"
#include "app/splash_window.h"

#include <QTimer>

namespace vellora {
namespace {

constexpr std::chrono::milliseconds kSettled(500);  // from the start on
constexpr std::chrono::seconds kPatience(5);

QString schedulePath(const QString& programDir) {
  return programDir + u"/SY.mdb"_qs;
}

}  // namespace

StartUp::StartUp(const QString& programDir, Prompts& prompts, const Clock& clock)
    : damage_check_(schedulePath(programDir), [this] { reportDamage(); }),
      store_(schedulePath(programDir), kPatience, [this] { return mayKeepWaiting(); }),
      state_{store_, prompts, clock, programDir, readSkinPath(store_, programDir), QString()} {}

// What is waited for may be this program's own check.
bool StartUp::mayKeepWaiting() {
  damage_check_.yieldToSave();
  return wait_.mayContinue();
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
  QTimer::singleShot(kSettled, board_.get(), [this] { damage_check_.begin(); });
  if (store_.isReadOnly()) {
    state_.prompts.warn(board_.get(),
                        u"日程文件或所在文件夹只能读取，不能写入，所做的更改将无法保存。"_qs);
  }
}

// On the check's own thread.
void StartUp::reportDamage() {
  QMetaObject::invokeMethod(
      &wait_, [this] { warnOfDamage(); }, Qt::QueuedConnection);
}

void StartUp::finishDamageCheck() {
  damage_check_.begin();
  damage_check_.finish();
}

void StartUp::warnOfDamage() {
  state_.prompts.warn(
      board_.get(),
      u"日程文件 SY.mdb 已损坏，部分内容可能读不出来。请先把它复制一份保存好，再从备份恢复。"_qs);
}

}  // namespace vellora
