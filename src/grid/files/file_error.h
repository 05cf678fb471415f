#pragma once

#include <QString>

#include <stdexcept>

namespace vellora {

// Why a file could not be read or written: one plain Chinese sentence made for the user.
class FileError : public std::runtime_error {
 public:
  explicit FileError(const QString& description);
  QString description() const;
};

// The file is written and in its place, but the disk refused the last step.
class WrittenFileError final : public FileError {
 public:
  explicit WrittenFileError(const QString& path);
};

// The sentences for a failed system call, by its errno.
FileError cannotWrite(const QString& path, int systemError);
FileError cannotRead(const QString& path, int systemError);

}  // namespace vellora
