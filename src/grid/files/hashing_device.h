#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <QIODevice>

namespace vellora {

// Passes what is written on to another device in large pieces and computes its SHA-256. The other
// device remembers its own failures.
class HashingDevice final : public QIODevice {
 public:
  explicit HashingDevice(QIODevice& target);

  bool isSequential() const override { return true; }
  // Passes on what is left and gives the hash of everything written; nothing more may be written.
  QByteArray finish();

 protected:
  qint64 readData(char* data, qint64 maxSize) override;
  qint64 writeData(const char* data, qint64 size) override;

 private:
  void flush();
  void pass(const char* data, qint64 size);

  QIODevice& target_;
  QCryptographicHash hash_{QCryptographicHash::Sha256};
  QByteArray buffer_;
  qint64 used_ = 0;  // bytes of the buffer
};

}  // namespace vellora
