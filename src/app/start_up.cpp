#include "app/start_up.h"

#include "app/attach_windows.h"
#include "app/splash_window.h"
#include "store/statements.h"

namespace vellora {
namespace {

// The stored path as it stands, or the default skin beside the executable.
QString readSkinPath(ScheduleStore& store, const QString& programDir) {
  auto setting = store.open(statements::skinSetting());
  return setting.isEmpty() ? programDir + u"/KTZ0.SKN"_qs : setting.text(u"jm");
}

}  // namespace

StartUp::StartUp(const QString& programDir, Prompts& prompts, const Clock& clock)
    : store_(programDir + u"/SY.mdb"_qs),
      state_{store_, prompts, clock, programDir, readSkinPath(store_, programDir), QString()} {}

StartUp::~StartUp() = default;

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
  if (store_.isReadOnly()) {
    state_.prompts.warn(board_.get(),
                        u"日程文件或所在文件夹只能读取，不能写入，所做的更改将无法保存。"_qs);
  }
}

}  // namespace vellora
