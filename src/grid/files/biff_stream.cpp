#include "grid/files/biff_stream.h"

#include <QtEndian>

#include <algorithm>
#include <bit>

namespace vellora {
namespace {

constexpr qsizetype kHeaderSize = 4;
constexpr qsizetype kMaxBody = 8'224;
constexpr quint16 kContinue = 0x003C;
constexpr qsizetype kUnitSize = 2;

bool needsTwoBytes(QStringView text) {
  return std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() > 0xFF; });
}

// A character outside the basic plane is never cut in half: some readers decode piece by piece.
qsizetype wholeCharacters(QStringView text, qsizetype units) {
  if (units >= text.size()) return text.size();
  return units > 0 && text[units - 1].isHighSurrogate() ? units - 1 : units;
}

}  // namespace

void BiffStream::begin(quint16 record) {
  start_ = bytes_.size();
  bytes_.resize(start_ + kHeaderSize);
  qToLittleEndian(record, bytes_.data() + start_);
}

void BiffStream::end() {
  const auto size = static_cast<quint16>(bytes_.size() - start_ - kHeaderSize);
  qToLittleEndian(size, bytes_.data() + start_ + 2);
}

qsizetype BiffStream::room() const {
  return kMaxBody - (bytes_.size() - start_ - kHeaderSize);
}

void BiffStream::keepTogether(qsizetype size) {
  if (size <= room()) return;
  end();
  begin(kContinue);
}

template <typename Integer>
void BiffStream::put(Integer value) {
  keepTogether(sizeof(value));
  const qsizetype old = bytes_.size();
  bytes_.resize(old + static_cast<qsizetype>(sizeof(value)));
  qToLittleEndian(value, bytes_.data() + old);
}

template void BiffStream::put(quint8);
template void BiffStream::put(quint16);
template void BiffStream::put(quint32);

void BiffStream::putReal(double value) {
  put(std::bit_cast<quint64>(value));
}

void BiffStream::putZeros(qsizetype count) {
  for (; count > 0; --count) put8(0);
}

BiffStream::Place BiffStream::putText(QStringView text) {
  const bool isWide = needsTwoBytes(text);
  const qsizetype header = sizeof(quint16) + sizeof(quint8);
  keepTogether(header + 2 * kUnitSize);
  const Place place{position(), static_cast<quint16>(bytes_.size() - start_)};
  put16(static_cast<quint16>(text.size()));
  putUnits(text, isWide);
  return place;
}

void BiffStream::putShortText(QStringView text) {
  put8(static_cast<quint8>(text.size()));
  putUnits(text, needsTwoBytes(text));
}

void BiffStream::putUnits(QStringView text, bool isWide) {
  put8(isWide ? 1 : 0);
  while (!text.isEmpty()) {
    const qsizetype count = wholeCharacters(text, isWide ? room() / kUnitSize : room());
    putPiece(text.first(count), isWide);
    text = text.sliced(count);
    if (text.isEmpty()) return;
    end();
    begin(kContinue);
    put8(isWide ? 1 : 0);
  }
}

void BiffStream::putPiece(QStringView piece, bool isWide) {
  const qsizetype old = bytes_.size();
  bytes_.resize(old + piece.size() * (isWide ? kUnitSize : 1));
  char* out = bytes_.data() + old;
  if (isWide) {
    qToLittleEndian<quint16>(piece.utf16(), piece.size(), out);
  } else {
    std::transform(piece.begin(), piece.end(), out, [](QChar unit) { return unit.toLatin1(); });
  }
}

void BiffStream::beginPart(quint16 part) {
  begin(0x0809);
  for (const int field : {0x0600, int{part}, 0x0DBB, 0x07CC, 0, 0, 6, 0}) {
    put16(static_cast<quint16>(field));
  }
  end();
}

void BiffStream::endPart() {
  begin(0x000A);
  end();
}

void BiffStream::record16(quint16 record, quint16 value) {
  begin(record);
  put16(value);
  end();
}

void BiffStream::recordReal(quint16 record, double value) {
  begin(record);
  putReal(value);
  end();
}

void BiffStream::patch32(quint32 position, quint32 value) {
  qToLittleEndian(value, bytes_.data() + position);
}

}  // namespace vellora
