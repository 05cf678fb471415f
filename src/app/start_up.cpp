#include "app/start_up.h"

#include "app/attach_windows.h"
#include "app/skin_setting.h"
#include "app/splash_window.h"
#include "schedule/automatic_copies.h"
#include "shell/work_dialog.h"
#include "store/statements.h"

#include <QApplication>
#include <QLocale>
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
      daily_copy_(programDir, schedulePath(programDir),
                  [this](const QString& reason) { sayNotCopied(reason); }),
      store_(schedulePath(programDir), kPatience, [this] { return mayKeepWaiting(); }),
      state_{store_,
             prompts,
             clock,
             programDir,
             readSkinPath(store_, programDir),
             QString(),
             [this](QWidget* window) { return copyFirst(window); }} {}

// What is waited for may be this program's own check.
bool StartUp::mayKeepWaiting() {
  damage_check_.yieldToSave();
  daily_copy_.yieldToSave();
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
  // The board comes first, and a question before the user has begun with anything.
  QTimer::singleShot(0, board_.get(), [this] { offerLostPlans(); });
  QTimer::singleShot(kSettled, board_.get(), [this] {
    damage_check_.begin();
    if (!store_.isReadOnly()) daily_copy_.begin();
  });
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
  daily_copy_.finish();
}

bool StartUp::copyFirst(QWidget* window) {
  try {
    runWithDialog(window, [this](const WorkProgress& progress) {
      AutomaticCopies(state_.programDir).make(store_, QDateTime::currentDateTime(), progress);
    });
    return true;
  } catch (const PlannerError& error) {
    return state_.prompts.ask(
        window, u"没有做成自动备份：%1\n没有备份也要继续吗？"_qs.arg(error.description()));
  } catch (const WorkCancelled&) {
    return false;
  }
}

// On the copy's own thread.
void StartUp::sayNotCopied(const QString& reason) {
  QMetaObject::invokeMethod(
      &wait_, [this, reason] { board_->say(u"今天的自动备份没有做成："_qs + reason); },
      Qt::QueuedConnection);
}

// Before the smaller schedule becomes the newest copy.
void StartUp::offerLostPlans() {
  if (QApplication::activeModalWidget()) return;
  try {
    const auto copy = AutomaticCopies(state_.programDir).lostSince(store_);
    if (!copy) return;
    const qint64 now = store_.open(statements::allPlans()).count();
    const QString question =
        u"日程里现在有 %1 条计划，%2 的自动备份里有 %3 条。\n要打开备份窗口，恢复到那时吗？"_qs.arg(
            QString::number(now), QLocale().toString(copy->time, u"yyyy-MM-dd HH:mm"),
            QString::number(copy->plans));
    if (state_.prompts.ask(board_.get(), question)) board_->runCommand(BoardCommand::Backup);
  } catch (const StoreError& error) {
    board_->say(error.description());
  }
}

void StartUp::warnOfDamage() {
  state_.prompts.warn(
      board_.get(),
      u"日程文件 SY.mdb 已损坏，部分内容可能读不出来。请先把它复制一份保存好，再从备份恢复。"_qs);
}

}  // namespace vellora
