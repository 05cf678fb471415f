#include "support/failing_disk.h"

#include <sqlite3.h>

namespace vellora::test {
namespace {

// The engine calls back with nothing but the file, so what fails is kept here.
struct Faults {
  int writesLeft = std::numeric_limits<int>::max();
  int writeCode = SQLITE_OK;
  bool isReadOnly = false;
  bool isFolderClosed = false;
};

// A kind of file with the methods that the disk gave it and those that fail.
struct Methods {
  const sqlite3_io_methods* whole = nullptr;
  sqlite3_io_methods failing{};
};

Faults faults;
sqlite3_vfs* disk = nullptr;
sqlite3_vfs failingDisk;
Methods scheduleMethods;  // files with locks
Methods otherMethods;     // journals, without

template <Methods* methods>
int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  if (faults.writesLeft == 0) return faults.writeCode;
  --faults.writesLeft;
  return methods->whole->xWrite(file, bytes, count, offset);
}

template <Methods* methods>
void makeFailing(sqlite3_file* file) {
  methods->whole = file->pMethods;
  methods->failing = *file->pMethods;
  methods->failing.xWrite = write<methods>;
  file->pMethods = &methods->failing;
}

int open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
  file->pMethods = nullptr;
  if (faults.isFolderClosed && (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0) {
    return SQLITE_READONLY_DIRECTORY;
  }
  if (faults.isReadOnly) flags = (flags & ~SQLITE_OPEN_READWRITE) | SQLITE_OPEN_READONLY;
  const int code = disk->xOpen(disk, name, file, flags, outFlags);
  if (file->pMethods == nullptr) return code;
  (flags & SQLITE_OPEN_MAIN_DB) != 0 ? makeFailing<&scheduleMethods>(file)
                                     : makeFailing<&otherMethods>(file);
  return code;
}

}  // namespace

FailingDisk::FailingDisk() {
  disk = sqlite3_vfs_find(nullptr);
  failingDisk = *disk;
  failingDisk.zName = "failing";
  failingDisk.xOpen = open;
  sqlite3_vfs_register(&failingDisk, 1);
}

FailingDisk::~FailingDisk() {
  repair();
  sqlite3_vfs_unregister(&failingDisk);
  sqlite3_vfs_register(disk, 1);
}

void FailingDisk::failWritesAfter(int writes, int code) {
  faults.writesLeft = writes;
  faults.writeCode = code;
}

void FailingDisk::makeReadOnly() {
  faults.isReadOnly = true;
}

void FailingDisk::closeFolder() {
  faults.isFolderClosed = true;
}

void FailingDisk::repair() {
  faults = Faults{};
}

}  // namespace vellora::test
