#pragma once

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

namespace vellora::test {

// What another program prints about a file, in lines; a test fails when it does not end well.
inline QStringList linesOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  const bool hasEnded = process.waitForFinished(240'000);
  EXPECT_TRUE(hasEnded) << program.toStdString() << ": " << process.errorString().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

inline bool runsWell(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  return process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit &&
         process.exitCode() == 0;
}

}  // namespace vellora::test
