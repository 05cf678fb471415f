#include "grid/files/unfinished_files.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellora {
namespace {

const QString kNames = u".vellora-*.tmp"_qs;

bool isLocked(int descriptor) {
  return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

void removeIfLeft(const QByteArray& path) {
  const int file = ::open(path.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return;
  if (isLocked(file)) ::unlink(path.constData());
  ::close(file);
}

}  // namespace

QByteArray unfinishedName(const QByteArray& folder) {
  const quint64 random = QRandomGenerator::global()->generate64();
  return folder + "/.vellora-" + QByteArray::number(random, 36) + ".tmp";
}

bool claimUnfinished(int descriptor) {
  if (!isLocked(descriptor) && errno == EWOULDBLOCK) return false;
  struct stat status {};
  return ::fstat(descriptor, &status) != 0 || status.st_nlink > 0;
}

void removeLeftOvers(const QByteArray& folder) {
  const QDir place(QFile::decodeName(folder));
  const QStringList names = place.entryList({kNames}, QDir::Files | QDir::Hidden);
  for (const QString& name : names) removeIfLeft(QFile::encodeName(place.filePath(name)));
}

}  // namespace vellora
