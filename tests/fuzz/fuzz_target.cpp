#include "fuzz/fuzz_target.h"

#include <stdexcept>

namespace vellora::test {

void require(bool holds, const char* property) {
  if (!holds) throw std::logic_error(property);
}

QByteArray bytesOf(Bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

QString textOf(Bytes bytes) {
  return QString::fromUtf8(bytesOf(bytes)).replace(QChar::ReplacementCharacter, QChar(0xD800));
}

}  // namespace vellora::test
