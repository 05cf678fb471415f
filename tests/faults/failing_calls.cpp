#include "faults/failing_calls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vellora::test {
namespace {

// The system's functions take no context, so what fails is kept here.
CallFault planned;
qint64 callsSeen = 0;
bool isRefusedSomething = false;

enum class Step { Go, Half, Fail };

Step failWith(int error) {
  isRefusedSomething = true;
  errno = error;
  return Step::Fail;
}

// What becomes of the next call.
Step nextStep(bool isWrite = false) {
  const qint64 call = callsSeen++;
  if (call < planned.at || (call > planned.at && !planned.lasts)) return Step::Go;
  if (planned.halves && !isWrite) return Step::Go;
  if (planned.halves && call == planned.at) return Step::Half;
  if (planned.kills) raise(SIGKILL);
  return failWith(planned.error);
}

// Pipes and terminals are none of our business.
bool isOfADisk(int descriptor, struct stat& status) {
  return fstat(descriptor, &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
}

// How much of a write finds room.
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
    if (planned.kills) raise(SIGKILL);
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
  if (planned.closed != 0) return failWith(planned.closed) != Step::Go;
  return nextStep() != Step::Go;
}

template <typename... Arguments>
int unless(bool isRefused, long call, Arguments... arguments) {
  return isRefused ? -1 : static_cast<int>(syscall(call, arguments...));
}

}  // namespace

void breakCalls(const CallFault& fault) {
  planned = fault;
  callsSeen = 0;
  isRefusedSomething = false;
}

bool hasMetFault() {
  return isRefusedSomething || callsSeen > planned.at;
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

ssize_t pwrite(int, const void*, size_t, off_t) __attribute__((alias("pwrite64")));

// The disk itself is not waited for: nothing here cuts the power.
int fsync(int descriptor) {
  return isRefused(descriptor) ? -1 : 0;
}

int fdatasync(int) __attribute__((alias("fsync")));

int ftruncate64(int descriptor, off64_t length) noexcept {
  return unless(isRefused(descriptor), SYS_ftruncate, descriptor, length);
}

int ftruncate(int, off_t) noexcept __attribute__((alias("ftruncate64")));

int rename(const char* from, const char* to) noexcept {
  return unless(isRefused(), SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0);
}

int unlink(const char* path) noexcept {
  return unless(isRefused(), SYS_unlinkat, AT_FDCWD, path, 0);
}

int fchmod(int descriptor, mode_t mode) noexcept {
  return unless(isRefused(descriptor), SYS_fchmod, descriptor, mode);
}

int access(const char* path, int mode) noexcept {
  if (planned.closed != 0 && (mode & W_OK) != 0) return failWith(planned.closed), -1;
  return unless(false, SYS_faccessat, AT_FDCWD, path, mode);
}

int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const bool makes = (flags & (O_CREAT | O_TMPFILE)) != 0;
  const mode_t mode = makes ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  const bool isForWriting = (flags & O_ACCMODE) != O_RDONLY;
  return unless(isForWriting && isRefused(), SYS_openat, AT_FDCWD, path, flags, mode);
}

int open(const char*, int, ...) __attribute__((alias("open64")));

}  // extern "C"
