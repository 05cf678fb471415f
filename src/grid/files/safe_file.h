#pragma once

#include "grid/files/file_error.h"

#include <QByteArray>
#include <QIODevice>

namespace vellora {

// Replaces a file whole or not at all, also when the disk fills up or the power goes: what is
// written goes into a file beside it, which commit() puts onto the disk and then in its place.
// Without commit() the destructor removes it and the old file stays. What a killed program left
// there is removed by the next that writes into the folder.
//
// Where only the folder cannot be synced any more, commit() throws WrittenFileError.
//
// A failed write makes write() return −1 and is remembered: commit() then throws its reason.
class SafeFile final : public QIODevice {
 public:
  // Throws FileError when nothing can be written there. A symbolic link is followed; the new file
  // gets the old one's permissions.
  explicit SafeFile(const QString& path);
  ~SafeFile() override;

  bool isSequential() const override { return true; }
  // Puts what was written so far onto the disk, for its owner to read back before commit(); gives
  // the path of the file in which it lies. Fails as commit() does.
  QString sync();
  void commit();

 protected:
  qint64 readData(char* data, qint64 maxSize) override;
  qint64 writeData(const char* data, qint64 size) override;

 private:
  void create();
  void createUnfinished();
  bool flush();
  void discard();
  void syncFolder() const;
  [[noreturn]] void fail(int systemError);

  QString path_;       // as the user knows it
  QByteArray target_;  // as the system knows it
  QByteArray temporary_;
  QByteArray buffer_;
  int descriptor_ = -1;
  int error_ = 0;
};

}  // namespace vellora
