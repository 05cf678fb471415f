#pragma once

#include <QByteArray>
#include <QStringView>

namespace vellora {

// Records of the binary Excel format (BIFF8; published as MS-XLS), little endian. The format cuts
// records at 8,224 bytes and continues them in CONTINUE records; this class alone knows how: no
// value is cut, and a text that is cut repeats its encoding after the cut.
class BiffStream {
 public:
  // Where a text begins: in the stream, and counted from the beginning of its record's header.
  struct Place {
    quint32 position;
    quint16 offset;
  };

  // Values are put between begin() and end().
  void begin(quint16 record);
  void end();
  void put8(quint8 value) { put(value); }
  void put16(quint16 value) { put(value); }
  void put32(quint32 value) { put(value); }
  void putReal(double value);
  void putZeros(qsizetype count);
  // The count of UTF-16 units (at most 65,535, or 255) and the units; one byte each where all fit.
  Place putText(QStringView text);
  void putShortText(QStringView text);

  // The records BOF and EOF around one part of a file: its globals (5) or a sheet (16).
  void beginPart(quint16 part);
  void endPart();
  // A whole record whose body is one number.
  void record16(quint16 record, quint16 value);
  void recordReal(quint16 record, double value);

  // Finished records of another stream.
  void append(const QByteArray& records) { bytes_.append(records); }
  // Replaces a 32-bit value that was put at this position.
  void patch32(quint32 position, quint32 value);
  quint32 position() const { return static_cast<quint32>(bytes_.size()); }
  const QByteArray& bytes() const { return bytes_; }

 private:
  template <typename Integer>
  void put(Integer value);
  qsizetype room() const;
  void keepTogether(qsizetype size);
  void putUnits(QStringView text, bool isWide);
  void putPiece(QStringView piece, bool isWide);

  QByteArray bytes_;
  qsizetype start_ = 0;  // of the present record's header
};

}  // namespace vellora
