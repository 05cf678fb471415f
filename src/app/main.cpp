#include "app/close_signals.h"
#include "app/platform.h"
#include "app/start_up.h"
#include "shell/box_prompts.h"
#include "store/store_error.h"

#include <QApplication>
#include <QTextStream>

namespace {

// Where the schedule lies: beside the program, or in the user's own data folder where the program
// belongs to the system.
QString programFolder() {
#ifdef VELLORA_SHARED_FILES
  return vellora::layUserFolder(QStringLiteral(VELLORA_SHARED_FILES));
#else
  return QApplication::applicationDirPath();
#endif
}

int failToStart(vellora::Prompts& prompts, const vellora::StoreError& error) {
  QTextStream(stderr) << error.description() << Qt::endl;
  prompts.warn(nullptr, error.description());
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  vellora::setUpPlatform(application);
  const vellora::CloseSignals closeSignals;
  vellora::BoxPrompts prompts;
  const vellora::SystemClock clock;
  try {
    vellora::StartUp startUp(programFolder(), prompts, clock);
    startUp.showBoard();
    return QApplication::exec();
  } catch (const vellora::StoreError& error) {
    return failToStart(prompts, error);
  }
}
