// The smallest Qt program that paints a window: what start-up and memory are compared with.

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace {

class EmptyWindow : public QWidget {
 protected:
  void paintEvent(QPaintEvent*) override { QTimer::singleShot(0, qApp, &QApplication::quit); }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  EmptyWindow window;
  window.resize(1080, 720);
  window.show();
  return QApplication::exec();
}
