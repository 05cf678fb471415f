#include "grid/files/safe_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellora {
namespace {

constexpr qsizetype kBufferSize = 65'536;
constexpr int kAttempts = 100;
constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away

QByteArray folderOf(const QByteArray& target) {
  const qsizetype slash = target.lastIndexOf('/');
  if (slash < 0) return ".";
  return slash == 0 ? QByteArray("/") : target.first(slash);
}

// Where a chain of symbolic links leads, else the path itself.
QByteArray followedLinks(const QString& path) {
  const QFileInfo file(path);
  const QString canonical = file.isSymLink() ? file.canonicalFilePath() : QString();
  return QFile::encodeName(canonical.isEmpty() ? path : canonical);
}

int writeAll(int descriptor, const char* data, qsizetype size) {
  while (size > 0) {
    const ssize_t written = ::write(descriptor, data, static_cast<std::size_t>(size));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    data += written;
    size -= written;
  }
  return 0;
}

// Files on their way to take the place of others. A program that is killed leaves its unfinished
// file behind; the next one to write into that folder removes it. As long as a file is being
// written it is locked (flock), by which the two are told apart. Where a file system knows no
// locks, nothing is ever removed.

const QString kUnfinishedNames = u".vellora-*.tmp"_qs;

bool isLocked(int descriptor) {
  return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

void removeIfLeft(const QByteArray& path) {
  const int file = ::open(path.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return;
  if (isLocked(file)) ::unlink(path.constData());
  ::close(file);
}

// A new name in the folder: hidden, and short whatever the name is that the file will get.
QByteArray unfinishedName(const QByteArray& folder) {
  const quint64 random = QRandomGenerator::global()->generate64();
  return folder + "/.vellora-" + QByteArray::number(random, 36) + ".tmp";
}

// Locks a file that was just made, until it is closed. False when another program took it for a
// left-over just before: it is gone then, and needs a new name.
bool claimUnfinished(int descriptor) {
  if (!isLocked(descriptor) && errno == EWOULDBLOCK) return false;
  struct stat status {};
  return ::fstat(descriptor, &status) != 0 || status.st_nlink > 0;
}

// What cannot be removed stays.
void removeLeftOvers(const QByteArray& folder) {
  const QDir place(QFile::decodeName(folder));
  const QStringList names = place.entryList({kUnfinishedNames}, QDir::Files | QDir::Hidden);
  for (const QString& name : names) removeIfLeft(QFile::encodeName(place.filePath(name)));
}

}  // namespace

SafeFile::SafeFile(const QString& path) : path_(path), target_(followedLinks(path)) {
  create();
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

SafeFile::~SafeFile() {
  discard();
}

void SafeFile::create() {
  struct stat old {};
  const bool replaces = ::stat(target_.constData(), &old) == 0;
  if (replaces && !S_ISREG(old.st_mode)) fail(EISDIR);
  if (replaces && ::access(target_.constData(), W_OK) != 0) fail(errno);
  removeLeftOvers(folderOf(target_));
  for (int attempt = 0; attempt < kAttempts && descriptor_ < 0; ++attempt) createUnfinished();
  if (descriptor_ < 0) fail(EEXIST);
  if (replaces && ::fchmod(descriptor_, old.st_mode & 07777U) != 0) fail(errno);
}

// Leaves no descriptor when the name was taken, or taken away again.
void SafeFile::createUnfinished() {
  const QByteArray name = unfinishedName(folderOf(target_));
  const int file = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
  if (file < 0 && errno != EEXIST) fail(errno);
  if (file < 0) return;
  if (!claimUnfinished(file)) {
    ::close(file);
    return;
  }
  descriptor_ = file;
  temporary_ = name;
}

QString SafeFile::sync() {
  if (!flush()) fail(error_);
  if (::fsync(descriptor_) != 0) fail(errno);
  return QFile::decodeName(temporary_);
}

void SafeFile::commit() {
  sync();
  if (std::rename(temporary_.constData(), target_.constData()) != 0) fail(errno);
  temporary_.clear();
  // Only now, for closing it gives up its lock. All of it is on the disk: nothing is left to fail.
  ::close(std::exchange(descriptor_, -1));
  close();
  syncFolder();
}

qint64 SafeFile::readData(char*, qint64) {
  return -1;
}

qint64 SafeFile::writeData(const char* data, qint64 size) {
  if (error_ != 0) return -1;
  buffer_.append(data, size);
  return buffer_.size() < kBufferSize || flush() ? size : -1;
}

bool SafeFile::flush() {
  if (error_ == 0) error_ = writeAll(descriptor_, buffer_.constData(), buffer_.size());
  buffer_.clear();
  return error_ == 0;
}

void SafeFile::discard() {
  if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
  if (!temporary_.isEmpty()) ::unlink(temporary_.constData());
  temporary_.clear();
}

// The new name must be on the disk as well. Some file systems cannot sync a folder (EINVAL).
void SafeFile::syncFolder() const {
  const int folder = ::open(folderOf(target_).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;  // may be closed for reading; the new file itself is on the disk
  const int error = ::fsync(folder) == 0 ? 0 : errno;
  ::close(folder);
  if (error != 0 && error != EINVAL) throw WrittenFileError(path_);
}

void SafeFile::fail(int systemError) {
  error_ = systemError;
  discard();
  throw cannotWrite(path_, systemError);
}

}  // namespace vellora
