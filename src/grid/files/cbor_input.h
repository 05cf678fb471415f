#pragma once

#include <QCborStreamReader>
#include <QString>

#include <stdexcept>

namespace vellora {

// The content is not what its place in the format asks for.
class MalformedContent : public std::runtime_error {
 public:
  MalformedContent() : std::runtime_error("malformed content") {}
};

// Reads expected CBOR items one after the other; anything else throws MalformedContent. Nothing is
// skipped and no length is believed before as many bytes are known to be there, so that content
// made by somebody else can neither nest deeply nor claim memory that it does not fill.
class CborInput {
 public:
  explicit CborInput(const QByteArray& content);

  qint64 integer(qint64 min, qint64 max);
  int integer32();  // any int
  bool boolean();
  double real(double min, double max);
  // At most maxBytes long. A text that is no valid Unicode is a byte string of its UTF-16 units.
  QString text(qint64 maxBytes);

  bool isArray() const { return reader_.isArray(); }
  bool isInteger() const { return reader_.isInteger(); }
  bool isNull() const { return reader_.isNull(); }
  void null();

  // hasNext() tells whether the array or map entered last goes on. leave() only where it does not.
  void enterArray();
  void enterMap();
  bool hasNext() const { return reader_.hasNext(); }
  void leave();

  // Whether everything was read; asked outside of arrays and maps.
  bool atEnd() const { return reader_.currentOffset() == size_; }

 private:
  void next();
  QByteArray bytes(qint64 maxBytes);
  void requireLength(qint64 maxBytes) const;

  QCborStreamReader reader_;
  qint64 size_;
};

}  // namespace vellora
