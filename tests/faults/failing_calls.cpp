#include "faults/failing_calls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vellora::test {
namespace {

using Kind = CallFault::Kind;

// The system's functions take no context, so what fails is kept here.
CallFault planned;
int callsSeen = 0;
bool isMet = false;

enum class Step { Go, Half, Fail };

Step failWith(int error) {
  isMet = true;
  errno = error;
  return Step::Fail;
}

Step stepAtFault(bool isWrite) {
  isMet = true;
  switch (planned.kind) {
    case Kind::Kills:
      raise(SIGKILL);
      break;
    case Kind::KillsHalfway:
      if (!isWrite) raise(SIGKILL);
      return Step::Half;
    case Kind::WritesHalf:
    case Kind::WritesHalfThenFails:
      return isWrite ? Step::Half : Step::Go;
    default:
      break;
  }
  return failWith(planned.error);
}

// What becomes of the next call.
Step nextStep(bool isWrite = false) {
  if (planned.kind == Kind::None) return Step::Go;
  const int call = callsSeen++;
  if (call == planned.at) return stepAtFault(isWrite);
  const bool lasts = planned.kind == Kind::FailsFromThenOn ||
                     (planned.kind == Kind::WritesHalfThenFails && isWrite);
  return call > planned.at && lasts ? failWith(planned.error) : Step::Go;
}

// Pipes and terminals are none of our business.
bool isOfADisk(int descriptor, struct stat& status) {
  return fstat(descriptor, &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
}

// How much of a write finds room; full when there is none at all.
std::size_t withinRoom(const struct stat& status, std::size_t count, off_t offset) {
  const qint64 end = offset + static_cast<qint64>(count);
  const qint64 growth = std::max<qint64>(0, end - status.st_size);
  const qint64 missing = std::max<qint64>(0, growth - planned.room);
  planned.room -= growth - missing;
  return count - std::min(count, static_cast<std::size_t>(missing));
}

template <typename Write>
ssize_t writeWith(int descriptor, std::size_t count, off_t offset, Write write) {
  struct stat status {};
  if (!isOfADisk(descriptor, status)) return write(count);
  const Step step = nextStep(true);
  if (step == Step::Fail) return -1;
  if (step == Step::Half) {
    const ssize_t written = write(count / 2);
    if (planned.kind == Kind::KillsHalfway) raise(SIGKILL);
    return written;
  }
  const std::size_t fitting = withinRoom(status, count, offset);
  if (fitting == 0 && count > 0) return failWith(ENOSPC), -1;
  return write(fitting);
}

bool isRefused(int descriptor) {
  struct stat status {};
  return isOfADisk(descriptor, status) && nextStep() != Step::Go;
}

// Of a call that names its file.
bool isRefused() {
  if (planned.isReadOnly) return failWith(EROFS) != Step::Go;
  return nextStep() != Step::Go;
}

int openWith(const char* path, int flags, mode_t mode) {
  if ((flags & O_ACCMODE) != O_RDONLY && isRefused()) return -1;
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

mode_t modeOf(int flags, va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

void breakCalls(const CallFault& wanted) {
  planned = wanted;
  callsSeen = 0;
  isMet = false;
}

bool hasMetFault() {
  return isMet;
}

}  // namespace vellora::test

// Every name under which the system's libraries know these calls.
extern "C" {

using namespace vellora::test;

ssize_t write(int descriptor, const void* bytes, size_t count) {
  return writeWith(descriptor, count, lseek(descriptor, 0, SEEK_CUR),
                   [&](size_t n) { return syscall(SYS_write, descriptor, bytes, n); });
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off64_t offset) {
  return writeWith(descriptor, count, offset,
                   [&](size_t n) { return syscall(SYS_pwrite64, descriptor, bytes, n, offset); });
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t offset) {
  return pwrite64(descriptor, bytes, count, offset);
}

ssize_t pread64(int descriptor, void* bytes, size_t count, off64_t offset) {
  if (planned.isUnreadable) return failWith(EIO), -1;
  return syscall(SYS_pread64, descriptor, bytes, count, offset);
}

ssize_t pread(int descriptor, void* bytes, size_t count, off_t offset) {
  return pread64(descriptor, bytes, count, offset);
}

// The disk itself is not waited for: nothing here cuts the power.
int fsync(int descriptor) {
  return isRefused(descriptor) ? -1 : 0;
}

int fdatasync(int descriptor) {
  return fsync(descriptor);
}

int ftruncate64(int descriptor, off64_t length) noexcept {
  return isRefused(descriptor) ? -1 : static_cast<int>(syscall(SYS_ftruncate, descriptor, length));
}

int ftruncate(int descriptor, off_t length) noexcept {
  return ftruncate64(descriptor, length);
}

int rename(const char* from, const char* to) noexcept {
  return isRefused() ? -1
                     : static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int unlink(const char* path) noexcept {
  return isRefused() ? -1 : static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

int fchmod(int descriptor, mode_t mode) noexcept {
  return isRefused(descriptor) ? -1 : static_cast<int>(syscall(SYS_fchmod, descriptor, mode));
}

int access(const char* path, int mode) noexcept {
  if (planned.isReadOnly && (mode & W_OK) != 0) return failWith(EROFS), -1;
  return static_cast<int>(syscall(SYS_faccessat, AT_FDCWD, path, mode));
}

int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeOf(flags, arguments);
  va_end(arguments);
  return openWith(path, flags, mode);
}

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeOf(flags, arguments);
  va_end(arguments);
  return openWith(path, flags, mode);
}

}  // extern "C"
