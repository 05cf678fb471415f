// The planner's start-up, from its first instruction to the painted board, and its memory, beside
// the smallest Qt program that paints an empty window. Whole processes, in turn.

#include "support/schedule_builder.h"
#include "support/side_by_side.h"

#include <QCoreApplication>
#include <QDate>
#include <QFile>

#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

namespace vellora::bench {
namespace {

constexpr int kBlocks = 50;
constexpr int kActivities = 60;
constexpr int kRepetitions = 41;

QString probe(const char* name) {
  return QCoreApplication::applicationDirPath() + u'/' + QString::fromLatin1(name);
}

// Runs a program to its end and returns the most memory it had resident, in KiB.
double peakMemory(const QString& program, const QString& folder) {
  const QByteArray path = program.toLocal8Bit();
  const QByteArray argument = folder.toLocal8Bit();
  const pid_t child = fork();
  if (child == 0) {
    execl(path.constData(), path.constData(), argument.constData(), nullptr);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) {
    throw std::runtime_error("a probe failed: " + program.toStdString());
  }
  return static_cast<double>(usage.ru_maxrss);
}

void laySkin(const QString& folder) {
  if (!QFile::copy(QStringLiteral(SKIN_FILE), folder + u"/KTZ0.SKN")) {
    throw std::runtime_error("the skin cannot be copied");
  }
}

void compareStart(SideBySide& table, const char* years, qint64 days) {
  test::ScheduleBuilder schedule;
  const QDate today = QDate::currentDate();
  schedule.fullDay(kBlocks).items(kActivities);
  schedule.fullPlan(today.addDays(8 - days), days, kBlocks, kActivities);
  laySkin(schedule.folder());
  const QString board = probe("board_probe");
  const QString empty = probe("empty_window_probe");
  std::vector<double> ours;
  std::vector<double> raw;
  table.compare(
      std::string("start to painted board, ") + years,
      [&] { ours.push_back(peakMemory(board, schedule.folder())); },
      [&] { raw.push_back(peakMemory(empty, schedule.folder())); }, kRepetitions, 2.2);
  table.record(std::string("most memory until then, ") + years, "KiB", medianOf(ours),
               medianOf(raw), 2.0);
}

}  // namespace
}  // namespace vellora::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  using namespace vellora::bench;
  SideBySide table;
  compareStart(table, "this week only", 7);
  compareStart(table, "20 years", 7'300);
  compareStart(table, "1,000,000 entries", 20'000);
  table.print();
}
