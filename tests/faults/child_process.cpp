#include "faults/child_process.h"

#include <csignal>
#include <exception>
#include <ostream>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vellora::test {
namespace {

constexpr unsigned kSecondsUntilItHangs = 120;

[[noreturn]] void live(const std::function<int()>& work) {
  alarm(kSecondsUntilItHangs);
  try {
    _exit(work());
  } catch (...) {
    std::terminate();
  }
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ChildEnd& end) {
  return end.signal == 0 ? out << "result " << end.code : out << "signal " << end.signal;
}

ChildProcess::ChildProcess(const std::function<int()>& work) : id_(fork()) {
  if (id_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (id_ == 0) live(work);
}

ChildProcess::~ChildProcess() {
  if (id_ == 0) return;
  kill();
  wait();
}

void ChildProcess::kill() const {
  ::kill(id_, SIGKILL);
}

ChildEnd ChildProcess::wait() {
  int status = 0;
  while (waitpid(id_, &status, 0) < 0 && errno == EINTR) {
  }
  id_ = 0;
  if (WIFSIGNALED(status)) return {.signal = WTERMSIG(status)};
  return {.code = WEXITSTATUS(status)};
}

}  // namespace vellora::test
