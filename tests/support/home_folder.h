#pragma once

#include "support/temporary_folder.h"

namespace vellora::test {

// Given paths begin in the user's home folder; while this lives, it is the test's own.
class HomeFolder : public TemporaryFolder {
 public:
  HomeFolder() { qputenv("HOME", path(QString()).toLocal8Bit()); }
  ~HomeFolder() { qputenv("HOME", old_); }
  HomeFolder(const HomeFolder&) = delete;
  HomeFolder& operator=(const HomeFolder&) = delete;

 private:
  QByteArray old_ = qgetenv("HOME");
};

}  // namespace vellora::test
