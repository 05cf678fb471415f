// The planner from its first instruction to the painted board, then out. The program folder is the
// only argument.

#include "app/platform.h"
#include "app/start_up.h"
#include "grid/surface/grid_surface.h"
#include "shell/box_prompts.h"
#include "store/store_error.h"

#include <QApplication>
#include <QEvent>
#include <QTextStream>
#include <QTimer>

namespace {

class QuitOnPaint : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, &QApplication::quit);
    return false;
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  vellora::setUpPlatform(application);
  vellora::BoxPrompts prompts;
  const vellora::SystemClock clock;
  try {
    vellora::StartUp startUp(QApplication::arguments().value(1), prompts, clock);
    startUp.showBoard();
    QuitOnPaint filter;
    auto* grid = startUp.board().findChild<vellora::GridSurface*>();
    grid->viewport()->installEventFilter(&filter);
    grid->viewport()->update();
    return QApplication::exec();
  } catch (const vellora::StoreError& error) {
    QTextStream(stderr) << error.description() << Qt::endl;
    return EXIT_FAILURE;
  }
}
