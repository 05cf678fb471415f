#include "grid/files/hashing_device.h"

namespace vellora {
namespace {

constexpr qsizetype kBufferSize = 65'536;

}  // namespace

HashingDevice::HashingDevice(QIODevice& target) : target_(target) {
  buffer_.reserve(kBufferSize);
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
  buffer_.append(data, size);
  if (buffer_.size() >= kBufferSize) flush();
  return size;
}

void HashingDevice::flush() {
  hash_.addData(buffer_);
  target_.write(buffer_);
  buffer_.clear();
  buffer_.reserve(kBufferSize);
}

}  // namespace vellora
