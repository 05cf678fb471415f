#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellora::test {

// A folder of a test's own, gone with it.
class TemporaryFolder {
 public:
  QString path(const QString& name) const { return folder_.filePath(name); }
  // Everything in it, hidden files included.
  QStringList names() const {
    return QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }

 private:
  QTemporaryDir folder_;
};

inline QByteArray bytesOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

inline void writeBytes(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
  ASSERT_EQ(file.write(bytes), bytes.size());
}

}  // namespace vellora::test
