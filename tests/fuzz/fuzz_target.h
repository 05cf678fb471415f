#pragma once

#include <QFile>
#include <QStringList>

#include <stdexcept>

namespace vellora::test {

// One reader of texts or files that come from outside, with what must hold whatever it is given.
struct FuzzTarget {
  const char* name;
  // Throws std::logic_error for a promise that is broken, and whatever the reader let out.
  void (*run)(const QByteArray& input);
  QByteArrayList seeds;  // good inputs to start from
};

QList<FuzzTarget> calendarTargets();
QList<FuzzTarget> fileTargets();
QList<FuzzTarget> statementTargets();
QList<FuzzTarget> textTargets();
inline QList<FuzzTarget> fuzzTargets() {
  return calendarTargets() + fileTargets() + statementTargets() + textTargets();
}

inline void require(bool holds, const char* promise) {
  if (!holds) throw std::logic_error(promise);
}

inline void writeFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
          "the disk has room");
}

// UTF-8; a byte that is no part of it becomes half a surrogate pair, which texts can hold as well.
inline QString textOf(const QByteArray& bytes) {
  return QString::fromUtf8(bytes).replace(QChar::ReplacementCharacter, QChar(0xD800));
}

inline QByteArrayList inUtf8(const QStringList& texts) {
  QByteArrayList bytes;
  for (const QString& text : texts) bytes << text.toUtf8();
  return bytes;
}

}  // namespace vellora::test
