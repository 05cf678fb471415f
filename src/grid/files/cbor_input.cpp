#include "grid/files/cbor_input.h"

#include <QStringDecoder>

#include <algorithm>
#include <cstring>
#include <limits>

namespace vellora {
namespace {

void require(bool condition) {
  if (!condition) throw MalformedContent();
}

QString unicodeText(const QByteArray& bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::ConvertInitialBom | QStringDecoder::Flag::Stateless);
  QString text = decoder(bytes);
  require(!decoder.hasError());
  return text;
}

}  // namespace

CborInput::CborInput(const QByteArray& content) : reader_(content), size_(content.size()) {}

qint64 CborInput::integer(qint64 min, qint64 max) {
  require(reader_.isInteger());
  qint64 value = 0;
  if (reader_.isUnsignedInteger()) {
    require(reader_.toUnsignedInteger() <= std::numeric_limits<qint64>::max());
    value = static_cast<qint64>(reader_.toUnsignedInteger());
  } else {
    const auto magnitude = static_cast<quint64>(reader_.toNegativeInteger());
    require(magnitude != 0 && magnitude <= std::numeric_limits<qint64>::max());
    value = -static_cast<qint64>(magnitude);
  }
  require(value >= min && value <= max);
  next();
  return value;
}

int CborInput::integer32() {
  return static_cast<int>(
      integer(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

bool CborInput::boolean() {
  require(reader_.isBool());
  const bool value = reader_.toBool();
  next();
  return value;
}

double CborInput::real(double min, double max) {
  require(reader_.isDouble());
  const double value = reader_.toDouble();
  require(value >= min && value <= max);  // false for a NaN as well
  next();
  return value;
}

QString CborInput::text(qint64 maxBytes) {
  if (reader_.isByteArray()) {
    const QByteArray units = bytes(maxBytes);
    require(units.size() % 2 == 0);
    QString text(units.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), units.constData(), static_cast<std::size_t>(units.size()));
    return text;
  }
  require(reader_.isString());
  return unicodeText(bytes(maxBytes));
}

// Of a text as well, which the reader itself would give without a mark of byte order at its
// beginning.
QByteArray CborInput::bytes(qint64 maxBytes) {
  requireLength(maxBytes);
  QByteArray bytes(static_cast<qsizetype>(reader_.length()), Qt::Uninitialized);
  auto piece = reader_.readStringChunk(bytes.data(), bytes.size());
  require(piece.status == QCborStreamReader::Ok && piece.data == bytes.size());
  piece = reader_.readStringChunk(bytes.data(), bytes.size());
  require(piece.status == QCborStreamReader::EndOfString);
  return bytes;
}

void CborInput::null() {
  require(reader_.isNull());
  next();
}

void CborInput::enterArray() {
  require(reader_.isArray() && reader_.enterContainer());
}

void CborInput::enterMap() {
  require(reader_.isMap() && reader_.enterContainer());
}

void CborInput::leave() {
  require(!reader_.hasNext() && reader_.leaveContainer());
  require(reader_.lastError() == QCborError::NoError ||
          reader_.lastError() == QCborError::EndOfFile);
}

// Of the string that comes next.
void CborInput::requireLength(qint64 maxBytes) const {
  require(reader_.isLengthKnown());
  const qint64 left = size_ - reader_.currentOffset();
  require(reader_.length() <= static_cast<quint64>(std::min(maxBytes, left)));
}

void CborInput::next() {
  require(reader_.next());
}

}  // namespace vellora
