// The store's long statements beside the same ones, prepared, on the engine's own interface.

#include "routine/calendar_text.h"
#include "store/schedule_store.h"
#include "store/statements.h"
#include "support/raw_database.h"
#include "support/schedule_builder.h"
#include "support/side_by_side.h"

#include <benchmark/benchmark.h>

namespace vellora::bench {
namespace {

constexpr int kBlocks = 50;
constexpr int kDays = 20'000;
constexpr int kActivities = 60;
const QDate kFirstDay(2007, 1, 1);

constexpr const char* kRawByCategory =
    "SELECT HD.HDLB, sum(substr(SJ1,1,2)*60+substr(SJ1,4,2)-substr(SJ0,1,2)*60-substr(SJ0,4,2))"
    " FROM HD JOIN JH ON HD.HDMC=JH.HDMC JOIN SJ ON SJ.SJKH=JH.SJKH"
    " WHERE JH.RQ>=? AND JH.RQ<=? GROUP BY HD.HDLB";
constexpr const char* kRawByActivity =
    "SELECT HD.HDLB, JH.HDMC,"
    " sum(substr(SJ1,1,2)*60+substr(SJ1,4,2)-substr(SJ0,1,2)*60-substr(SJ0,4,2)), count(JH.HDMC)"
    " FROM HD JOIN JH ON HD.HDMC=JH.HDMC JOIN SJ ON SJ.SJKH=JH.SJKH"
    " WHERE JH.RQ>=? AND JH.RQ<=? GROUP BY HD.HDLB, JH.HDMC";

void compareSums(SideBySide& table, const test::ScheduleBuilder& builder, const char* what,
                 Query (*statement)(QDate, QDate), const char* rawSql) {
  const QDate last = kFirstDay.addYears(200);
  ScheduleStore store(builder.path());
  RawDatabase raw(builder.path());
  RawStatement rawSums(raw.connection(), rawSql);
  const QByteArray bounds[] = {isoDate(kFirstDay).toUtf8(), isoDate(last).toUtf8()};
  const auto ours = [&] {
    Recordset sums = store.open(statement(kFirstDay, last));
    for (; !sums.atEnd(); sums.moveNext()) benchmark::DoNotOptimize(sums.number(u"SJ"));
  };
  const auto bare = [&] {
    rawSums.bind(1, bounds[0]);
    rawSums.bind(2, bounds[1]);
    while (rawSums.step()) benchmark::DoNotOptimize(rawSums.number(1));
    rawSums.reset();
  };
  table.compare(what, ours, bare, 5, 1.2);
}

// One pass over the whole plan, as a backup makes it.
void comparePasses(SideBySide& table, const test::ScheduleBuilder& builder) {
  ScheduleStore store(builder.path());
  RawDatabase raw(builder.path());
  RawStatement rows(raw.connection(), "SELECT * FROM JH");
  const auto ours = [&] {
    RowCursor cursor = store.readOnce(statements::allPlans());
    while (cursor.next()) {
      for (const int column : {0, 1, 2, 3}) benchmark::DoNotOptimize(cursor.text(column));
      benchmark::DoNotOptimize(cursor.number(4));
    }
  };
  const auto bare = [&] {
    while (rows.step()) {
      for (const int column : {0, 1, 2, 3}) benchmark::DoNotOptimize(rows.text(column));
      benchmark::DoNotOptimize(rows.number(4));
    }
    rows.reset();
  };
  table.compare("one pass over 1,000,000 entries", ours, bare, 5);
}

constexpr int kAdded = 20'000;

// Adds entries as a restore does; both take them back again.
void compareAdding(SideBySide& table) {
  const test::ScheduleBuilder builder;
  ScheduleStore store(builder.path());
  RawDatabase raw(builder.path());
  RawStatement insert(raw.connection(), "INSERT INTO JH VALUES (?,?,?,?,?)");
  const QString texts[] = {isoDate(kFirstDay), u"001"_qs, u"活动001"_qs, u"按时完成"_qs};
  const QByteArray bytes[] = {texts[0].toUtf8(), texts[1].toUtf8(), texts[2].toUtf8(),
                              texts[3].toUtf8()};
  const auto ours = [&] {
    const ScheduleStore::Transaction restore(store);
    Recordset plans = store.open(u"JH"_qs);
    for (int i = 0; i < kAdded; ++i) {
      plans.addNew();
      for (int column = 0; column < 4; ++column) plans.set(plans.columnName(column), texts[column]);
      plans.set(u"ZYDJ", i % 5);
      plans.update();
    }
  };
  const auto bare = [&] {
    raw.run("BEGIN IMMEDIATE");
    for (int i = 0; i < kAdded; ++i) {
      for (int column = 0; column < 4; ++column) insert.bind(column + 1, bytes[column]);
      insert.bind(5, i % 5);
      insert.step();
      insert.reset();
    }
    raw.run("ROLLBACK");
  };
  table.compare("adding 20,000 entries", ours, bare, 7);
}

// Opening must not depend on how much is planned.
void compareOpenings(SideBySide& table, const test::ScheduleBuilder& full) {
  const test::ScheduleBuilder empty;
  table.compare(
      "opening 1,000,000 entries, beside none", [&] { const ScheduleStore store(full.path()); },
      [&] { const ScheduleStore store(empty.path()); }, 51);
}

}  // namespace
}  // namespace vellora::bench

int main() {
  using namespace vellora;
  test::ScheduleBuilder full;
  full.fullDay(bench::kBlocks).items(bench::kActivities);
  full.fullPlan(bench::kFirstDay, bench::kDays, bench::kBlocks, bench::kActivities);
  bench::SideBySide table;
  bench::compareSums(table, full, "minutes by category, 1,000,000 entries",
                     statements::minutesByCategory, bench::kRawByCategory);
  bench::compareSums(table, full, "minutes by activity, 1,000,000 entries",
                     statements::minutesByActivity, bench::kRawByActivity);
  bench::comparePasses(table, full);
  bench::compareAdding(table);
  bench::compareOpenings(table, full);
  table.print();
}
