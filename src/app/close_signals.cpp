#include "app/close_signals.h"

#include <QApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QWidget>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace vellora {
namespace {

volatile std::sig_atomic_t writing_end = -1;

void writeToPipe(int /*signal*/) {
  const char one = 1;
  const auto written = write(writing_end, &one, 1);  // a full pipe says it already
  static_cast<void>(written);
}

void handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

}  // namespace

CloseSignals::CloseSignals() {
  for (const int failure : {SIGPIPE, SIGXFSZ}) handle(failure, SIG_IGN);
  if (pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;  // signals end the program then
  writing_end = ends_[1];
  for (const int end : {SIGTERM, SIGHUP, SIGINT}) handle(end, writeToPipe);
  auto* notifier = new QSocketNotifier(ends_[0], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, &CloseSignals::closeOnSignal);
  connect(qApp, &QGuiApplication::commitDataRequest, this, [](QSessionManager& session) {
    if (!closeWindows()) session.cancel();
  });
}

CloseSignals::~CloseSignals() {
  for (const int end : {SIGTERM, SIGHUP, SIGINT}) handle(end, SIG_DFL);
  for (const int end : ends_) close(end);
}

// A second signal while a window asks changes nothing.
void CloseSignals::closeOnSignal() {
  char one = 0;
  while (read(ends_[0], &one, 1) > 0) continue;
  if (is_closing_) return;
  is_closing_ = true;
  closeWindows();
  is_closing_ = false;
}

// From the window in front to the board, each by its own close event.
bool CloseSignals::closeWindows() {
  while (QWidget* front = QApplication::activeModalWidget()) {
    if (!front->close()) return false;
    if (QApplication::activeModalWidget() == front) return false;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && !window->parentWidget() && !window->close()) return false;
  }
  return true;
}

}  // namespace vellora
