#pragma once

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

namespace vellora::test {

// What another program prints about a file, in lines; a test fails when it does not end well.
inline QStringList linesOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(240'000)) << process.errorString().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

inline QStringList readXls(const QStringList& paths) {
  return linesOf(QStringLiteral(PYTHON),
                 QStringList(QStringLiteral(READER_DIR "/read_xls.py")) + paths);
}

inline QStringList readHtml(const QString& path) {
  return linesOf(QStringLiteral(PYTHON), {QStringLiteral(READER_DIR "/read_html.py"), path});
}

}  // namespace vellora::test
