#include "faults/child.h"

#include "grid/files/file_error.h"
#include "routine/work_step.h"
#include "store/store_error.h"

#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

namespace vellora::test {

bool isThorough() {
  return qEnvironmentVariableIsSet("THOROUGH");
}

bool isChinese(const QString& description) {
  return std::any_of(description.begin(), description.end(),
                     [](QChar c) { return c.script() == QChar::Script_Han; });
}

Outcome outcomeOf(const std::function<void()>& work) {
  try {
    work();
    return kDone;
  } catch (const WorkCancelled&) {
    return kCancelled;
  } catch (const WrittenFileError&) {
    return kDone;
  } catch (const std::exception& error) {
    const auto* ofStore = dynamic_cast<const StoreError*>(&error);
    if (ofStore && ofStore->fault() == StoreFault::SavedDespiteError) return kDone;
    if (isChinese(QString::fromUtf8(error.what()))) return kRefused;
    std::fputs(error.what(), stderr);
    return kUnexpected;
  }
}

int startChild(const std::function<int()>& work) {
  const int child = fork();
  if (child < 0) throw std::runtime_error("fork");
  if (child > 0) return child;
  alarm(120);
  try {
    _exit(work());
  } catch (...) {
    std::terminate();
  }
}

int endOf(int child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace vellora::test
