#pragma once

#include <limits>

namespace vellora::test {

// While it lives, every database file is opened on a disk that can fail. One at a time.
class FailingDisk {
 public:
  FailingDisk();
  ~FailingDisk();
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  // From now on `writes` more writes succeed; the later ones fail with the engine's result code.
  void failWritesAfter(int writes, int code);
  // Files that are opened from now on can only be read.
  void makeReadOnly();
  // Nothing can be made beside the schedule from now on: no journal, so no save.
  void closeFolder();
  void repair();
};

}  // namespace vellora::test
