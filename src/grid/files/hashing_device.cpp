#include "grid/files/hashing_device.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr qsizetype kBufferSize = 65'536;

}  // namespace

HashingDevice::HashingDevice(QIODevice& target)
    : target_(target), buffer_(kBufferSize, Qt::Uninitialized) {
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

QByteArray HashingDevice::finish() {
  flush();
  close();
  return hash_.result();
}

qint64 HashingDevice::readData(char*, qint64) {
  return -1;
}

qint64 HashingDevice::writeData(const char* data, qint64 size) {
  if (used_ + size > buffer_.size()) flush();
  if (size > buffer_.size()) {
    pass(data, size);
  } else {
    std::copy_n(data, size, buffer_.data() + used_);
    used_ += size;
  }
  return size;
}

void HashingDevice::flush() {
  pass(buffer_.constData(), used_);
  used_ = 0;
}

void HashingDevice::pass(const char* data, qint64 size) {
  hash_.addData(QByteArrayView(data, size));
  target_.write(data, size);
}

}  // namespace vellora
