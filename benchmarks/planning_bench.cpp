// Listing, repeating and saving a plan of many entries beside the same rows on the engine's own
// interface, prepared and in one transaction.

#include "routine/calendar_text.h"
#include "schedule/plan_repetition.h"
#include "schedule/plan_rows.h"
#include "schedule/plan_saving.h"
#include "store/undo_log.h"
#include "support/raw_database.h"
#include "support/schedule_builder.h"
#include "support/side_by_side.h"

#include <benchmark/benchmark.h>

namespace vellora::bench {
namespace {

constexpr int kBlocks = 20;
constexpr int kEntries = 10'000;
constexpr int kCopies = 3'650;
constexpr double kTarget = 2;
const QDate kFirstDay(2007, 1, 1);
const QString kActivity = u"活动001"_qs;
const QByteArray kActivityBytes = kActivity.toUtf8();

void compareListing(SideBySide& table, const test::ScheduleBuilder& builder) {
  ScheduleStore store(builder.path());
  const TimeBlockList blocks(store);
  Sheet sheet;
  setUpPlanRows(sheet);
  RawDatabase raw(builder.path());
  RawStatement rows(raw.connection(), "SELECT * FROM JH WHERE HDMC=? ORDER BY RQ,SJKH");
  rows.bind(1, kActivityBytes);
  const auto bare = [&] {
    while (rows.step()) {
      for (int column = 0; column < 5; ++column) benchmark::DoNotOptimize(rows.text(column));
    }
    rows.reset();
  };
  table.compare(
      "list 10,000 entries", [&] { listEntries(store, sheet, blocks, kActivity); }, bare, 15,
      kTarget);
}

void compareRepeating(SideBySide& table, const test::ScheduleBuilder& builder) {
  ScheduleStore store(builder.path());
  Sheet source;
  setUpPlanRows(source);
  placePlanRow(source, 0, kFirstDay, *TimeBlockList(store).find(u"001"_qs), kActivity);
  RawDatabase raw(builder.path());
  RawStatement holder(raw.connection(), "SELECT * FROM JH WHERE RQ=? AND SJKH=?");
  const QByteArray code = "001";
  const auto ours = [&] {
    Sheet sheet = source;
    repeatPlanRow(store, sheet, 0, {kCopies, 1});
  };
  const auto bare = [&] {
    raw.run("BEGIN");
    for (int k = 1; k <= kCopies; ++k) {
      const QByteArray day = isoDate(kFirstDay.addDays(k)).toUtf8();
      holder.bind(1, day);
      holder.bind(2, code);
      if (holder.step()) {
        for (const int column : {2, 3, 4}) benchmark::DoNotOptimize(holder.text(column));
      }
      holder.reset();
    }
    raw.run("COMMIT");
  };
  table.compare("repeat over 3,650 days", ours, bare, 15, kTarget);
}

// Replaces the whole plan as it is written down: deletes all, then looks each row up twice and adds
// it.
class RawSave {
 public:
  RawSave(const QString& path, const Sheet& sheet) : database_(path) {
    for (int row = 0; row < kEntries; ++row) {
      rows_.push_back({sheet.GetCellText(kPlanDate, row).left(10).toUtf8(),
                       sheet.CellTag(kPlanTime, row).toUtf8()});
    }
  }

  void save(const QByteArray& requirement) {
    database_.run("BEGIN IMMEDIATE");
    delete_.bind(1, kActivityBytes);
    delete_.step();
    delete_.reset();
    for (const auto& [date, code] : rows_) saveRow(date, code, requirement);
    database_.run("COMMIT");
  }

 private:
  void saveRow(const QByteArray& date, const QByteArray& code, const QByteArray& requirement) {
    if (isFound(own_, {kActivityBytes, date, code}) || isFound(any_, {date, code})) return;
    const QByteArray values[] = {date, code, kActivityBytes, requirement};
    for (int i = 0; i < 4; ++i) insert_.bind(i + 1, values[i]);
    insert_.bind(5, qint64{3});
    insert_.step();
    insert_.reset();
  }
  static bool isFound(RawStatement& statement, std::initializer_list<QByteArray> values) {
    int index = 0;
    for (const QByteArray& value : values) statement.bind(++index, value);
    const bool found = statement.step();
    statement.reset();
    return found;
  }

  RawDatabase database_;
  RawStatement delete_{database_.connection(), "DELETE FROM JH WHERE HDMC=?"};
  RawStatement own_{database_.connection(), "SELECT * FROM JH WHERE HDMC=? AND RQ=? AND SJKH=?"};
  RawStatement any_{database_.connection(), "SELECT * FROM JH WHERE RQ=? AND SJKH=?"};
  RawStatement insert_{database_.connection(), "INSERT INTO JH VALUES (?,?,?,?,?)"};
  std::vector<std::pair<QByteArray, QByteArray>> rows_;
};

void writeRequirement(Sheet& sheet, const QString& requirement) {
  for (int row = 0; row < kEntries; ++row) {
    sheet.SetCellText(kPlanRequirement, row, requirement);
  }
}

// Every entry is another one than before in every run.
void compareSaving(SideBySide& table, const test::ScheduleBuilder& builder) {
  ScheduleStore store(builder.path());
  store.undoLog();
  Sheet sheet;
  setUpPlanRows(sheet);
  listEntries(store, sheet, TimeBlockList(store), kActivity);
  Sheet other = sheet;
  writeRequirement(sheet, u"甲"_qs);
  writeRequirement(other, u"乙"_qs);
  RawSave raw(builder.path(), sheet);
  int run = 0;
  table.compare(
      "save 10,000 changed entries",
      [&] { writePlan(store, ++run % 2 ? sheet : other, kActivity, nullptr); },
      [&] { raw.save(QByteArray::number(++run)); }, 9, kTarget);
  Sheet empty;
  setUpPlanRows(empty);
  writePlan(store, empty, kActivity, nullptr);
  table.compare(
      "save 10,000 new entries, then none",
      [&] {
        writePlan(store, sheet, kActivity, nullptr);
        writePlan(store, empty, kActivity, nullptr);
      },
      [&] {
        raw.save(QByteArray::number(++run));
        raw.save(QByteArray::number(++run));
      },
      9, kTarget);
}

}  // namespace
}  // namespace vellora::bench

int main() {
  using namespace vellora;
  test::ScheduleBuilder builder;
  builder.fullDay(bench::kBlocks)
      .items(2)
      .fullPlan(bench::kFirstDay, bench::kEntries / 10, bench::kBlocks, 2);
  bench::SideBySide table;
  bench::compareListing(table, builder);
  bench::compareRepeating(table, builder);
  bench::compareSaving(table, builder);
  table.print();
  return 0;
}
