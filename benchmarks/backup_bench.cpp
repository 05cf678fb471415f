// Backup and restore of a million plan entries. A backup, hashed and read back, stands beside one
// pass over all rows and one decoding of its file; a restore beside the same rows put in the place
// of the old ones by a prepared statement in one transaction. Both leave the file synced. The peak
// memory is that of a process which does nothing else, and does it twice as a user may.

#include "schedule/backup.h"
#include "support/raw_database.h"
#include "support/schedule_builder.h"
#include "support/side_by_side.h"

#include <QCborStreamReader>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

namespace vellora::bench {
namespace {

constexpr int kBlocks = 50;
constexpr int kDays = 20'000;
constexpr int kActivities = 60;
constexpr int kTextColumns = 4;
constexpr double kMostKibibytes = 200 * 1'024;

void readCell(RawStatement& rows, int column) {
  if (rows.isNumber(column)) {
    benchmark::DoNotOptimize(rows.number(column));
  } else {
    benchmark::DoNotOptimize(rows.text(column));
  }
}

void passOver(RawDatabase& raw) {
  for (const QString& table : backedUpTables()) {
    const QByteArray sql = "SELECT * FROM " + table.toUtf8();
    RawStatement rows(raw.connection(), sql.constData());
    const int columns = rows.columnCount();
    while (rows.step()) {
      for (int column = 0; column < columns; ++column) readCell(rows, column);
    }
  }
}

void decodeText(QCborStreamReader& reader) {
  QString text;
  auto piece = reader.readString();
  for (; piece.status == QCborStreamReader::Ok; piece = reader.readString()) text += piece.data;
  benchmark::DoNotOptimize(text);
}

void decodeFile(const QString& path) {
  constexpr qint64 kHeadSize = 10;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || !file.seek(kHeadSize)) std::abort();
  QCborStreamReader reader(file.readAll());
  do {
    while (reader.containerDepth() > 0 && !reader.hasNext()) reader.leaveContainer();
    if (reader.containerDepth() == 0 && !reader.isArray()) break;
    if (reader.isContainer()) {
      reader.enterContainer();
    } else if (reader.isString()) {
      decodeText(reader);
    } else {
      benchmark::DoNotOptimize(reader.isInteger() ? reader.toInteger() : 0);
      reader.next();
    }
  } while (reader.containerDepth() > 0);
}

// The plan's rows in memory, and a statement that puts them in the place of the old ones.
class RawRestore {
 public:
  explicit RawRestore(RawDatabase& raw) : raw_(raw) {
    RawStatement rows(raw.connection(), "SELECT * FROM JH");
    while (rows.step()) {
      Row& row = rows_.emplace_back();
      for (int column = 0; column < kTextColumns; ++column) row.texts[column] = rows.bytes(column);
      row.level = rows.number(kTextColumns);
    }
  }

  void run() {
    raw_.run("PRAGMA synchronous=EXTRA");
    raw_.run("BEGIN IMMEDIATE");
    raw_.run("DELETE FROM JH");
    RawStatement insert(raw_.connection(), "INSERT INTO JH VALUES (?,?,?,?,?)");
    for (const Row& row : rows_) {
      for (int column = 0; column < kTextColumns; ++column) {
        insert.bind(column + 1, row.texts[column]);
      }
      insert.bind(kTextColumns + 1, row.level);
      insert.step();
      insert.reset();
    }
    raw_.run("COMMIT");
  }

 private:
  struct Row {
    QByteArray texts[kTextColumns];
    qint64 level;
  };

  RawDatabase& raw_;
  std::vector<Row> rows_;
};

void compare(SideBySide& table, const test::ScheduleBuilder& builder, const QString& path) {
  ScheduleStore store(builder.path());
  RawDatabase raw(builder.path());
  Workbook workbook;
  table.compare(
      "backing up 1,000,000 entries",
      [&] { BackupTables(store, workbook, path, builder.folder()); },
      [&] {
        passOver(raw);
        decodeFile(path);
      },
      3, 3);
  RawRestore rawRestore(raw);
  table.compare(
      "restoring 1,000,000 entries", [&] { RestoreTables(store, workbook, path); },
      [&] { rawRestore.run(); }, 3, 1.7);
}

void runTwice(bool isBackup, const QString& schedule, const QString& path) {
  ScheduleStore store(schedule);
  Workbook shown;
  for (int i = 0; i < 2; ++i) {
    isBackup ? BackupTables(store, shown, path, {}) : RestoreTables(store, shown, path);
  }
}

double kibibytesOf(const char* program, const char* job, const QString& schedule,
                   const QString& path) {
  const QByteArray files[] = {schedule.toUtf8(), path.toUtf8()};
  const char* const arguments[] = {program, job, files[0].constData(), files[1].constData(),
                                   nullptr};
  pid_t child = 0;
  int status = 0;
  rusage usage{};
  if (posix_spawn(&child, program, nullptr, nullptr, const_cast<char* const*>(arguments),
                  environ) != 0 ||
      wait4(child, &status, 0, &usage) != child || status != 0) {
    std::abort();
  }
  return static_cast<double>(usage.ru_maxrss);
}

// Before anything else: a child's peak counts from that of its parent on.
void recordMemory(SideBySide& table, const char* program, const test::ScheduleBuilder& builder,
                  const QString& path) {
  for (const char* job : {"backup", "restore"}) {
    table.record(std::string("most memory of a ") + job + ", beside the bound", "KiB",
                 kibibytesOf(program, job, builder.path(), path), kMostKibibytes, 1);
  }
}

void measure(const char* program) {
  test::ScheduleBuilder builder;
  builder.fullDay(kBlocks)
      .items(kActivities)
      .fullPlan(QDate(2007, 1, 1), kDays, kBlocks, kActivities);
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"a.KTZ"_qs);
  SideBySide table;
  recordMemory(table, program, builder, path);
  compare(table, builder, path);
  table.print();
}

}  // namespace
}  // namespace vellora::bench

int main(int count, char** arguments) {
  using namespace vellora;
  if (count == 4) {
    bench::runTwice(qstrcmp(arguments[1], "backup") == 0, QString::fromUtf8(arguments[2]),
                    QString::fromUtf8(arguments[3]));
  } else {
    bench::measure(arguments[0]);
  }
}
