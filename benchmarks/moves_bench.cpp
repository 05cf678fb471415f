// What is done to plans on the board, with the log that undoes it, beside the same rows on the
// engine's own interface.

#include "routine/calendar_text.h"
#include "schedule/plan_moves.h"
#include "schedule/plan_search.h"
#include "schedule/week.h"
#include "store/undo_log.h"
#include "support/raw_board.h"
#include "support/schedule_builder.h"
#include "support/side_by_side.h"

#include <QElapsedTimer>

#include <algorithm>

namespace vellora::bench {
namespace {

constexpr int kBlocks = 12;
constexpr int kWeeks = 50;
const QDate kMonday(2007, 1, 1);

QByteArray bytesOf(QDate date) {
  return isoDate(date).toUtf8();
}

// Looks each place up, empties it and fills it, one after the other in one transaction.
class RawMoves {
 public:
  explicit RawMoves(const QString& path) : database_(path) {}

  void begin() { database_.run("BEGIN IMMEDIATE"); }
  void commit() { database_.run("COMMIT"); }
  void lookUp(const QByteArray& day, const QByteArray& code) { run(any_, {day, code}); }
  void remove(const QByteArray& day, const QByteArray& code) { run(delete_, {day, code}); }
  void add(const QByteArray& day, const QByteArray& code) {
    run(insert_, {day, code, "活动001", "要求", "1"});
  }

 private:
  static void run(RawStatement& statement, std::initializer_list<QByteArray> values) {
    int index = 0;
    for (const QByteArray& value : values) statement.bind(++index, value);
    statement.step();
    statement.reset();
  }

  RawDatabase database_;
  RawStatement any_{database_.connection(), "SELECT * FROM JH WHERE RQ=? AND SJKH=?"};
  RawStatement delete_{database_.connection(), "DELETE FROM JH WHERE RQ=? AND SJKH=?"};
  RawStatement insert_{database_.connection(), "INSERT INTO JH VALUES (?,?,?,?,?)"};
};

// To a free day and back again.
void compareMoves(SideBySide& table, const test::ScheduleBuilder& builder) {
  ScheduleStore store(builder.path());
  store.undoLog();
  Sheet sheet;
  sheet.SetCols(kBoardCols);
  BuildTimeRows(store, sheet);
  RawMoves raw(builder.path());
  RawBoard board(builder.path(), kMonday);
  QDate day = kMonday;
  QDate other = kMonday.addDays(6);
  const auto ours = [&] {
    const PlanMoves moves =
        shifted({*plannedBlock(store, {day, u"001"_qs})}, day.daysTo(other), false);
    conflictsOf(store, moves);
    carryOut(store, moves);
    FillWeek(store, sheet, kMonday);
    std::swap(day, other);
  };
  const auto bare = [&] {
    raw.begin();
    raw.remove(bytesOf(day), "001");
    raw.add(bytesOf(other), "001");
    raw.commit();
    board.fill();
    std::swap(day, other);
  };
  table.compare("move on the board, saved and shown", ours, bare, 31, 1.3);
}

void compareCopies(SideBySide& table, const test::ScheduleBuilder& builder) {
  ScheduleStore store(builder.path());
  store.undoLog();
  RawMoves raw(builder.path());
  const auto blocks = plannedBlocks(store, kMonday, kMonday.addDays(6));
  const PlanMoves copies = repeatedWeekly(blocks, kWeeks);
  PlanMoves cancellations;
  std::vector<std::pair<QByteArray, QByteArray>> places;
  for (const PlanMove& copy : copies) {
    cancellations.push_back({copy.to, {}, {}});
    places.emplace_back(bytesOf(copy.to->first), copy.to->second.toUtf8());
  }
  const auto ours = [&] {
    conflictsOf(store, copies);
    carryOut(store, copies);
    carryOut(store, cancellations);
  };
  const auto bare = [&] {
    for (const auto& [day, code] : places) raw.lookUp(day, code);
    raw.begin();
    for (const auto& [day, code] : places) raw.remove(day, code);
    for (const auto& [day, code] : places) raw.add(day, code);
    raw.commit();
    raw.begin();
    for (const auto& [day, code] : places) raw.remove(day, code);
    raw.commit();
  };
  table.compare("copy a week over 50 weeks, then cancel", ours, bare, 15, 2);
}

// From the key to the first hits, when nothing before the shown day matches: beside the bound.
void measureSearch(SideBySide& table) {
  constexpr double kBound = 100;  // milliseconds
  constexpr std::chrono::milliseconds kSlice(15);
  test::ScheduleBuilder builder;
  builder.fullDay(50).items(60).fullPlan(kMonday, 20'000, 50, 60);
  ScheduleStore store(builder.path());
  double first = 0;
  double longest = 0;
  QElapsedTimer clock;
  clock.start();
  PlanSearch search(store, u"活动001"_qs, kMonday.addDays(10'000));
  while (!search.isOver()) {
    const double before = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    const bool isFound = !search.next(kSlice).empty();
    const double now = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    if (isFound && first == 0) first = now;
    longest = std::max(longest, now - before);
  }
  table.record("first hits among 1,000,000, beside the bound", "ms", first, kBound, 1);
  table.record("longest slice of that search, beside the bound", "ms", longest, 50, 1);
}

}  // namespace
}  // namespace vellora::bench

int main() {
  using namespace vellora;
  test::ScheduleBuilder builder;
  builder.fullDay(bench::kBlocks).items(5).fullPlan(bench::kMonday, 6, bench::kBlocks, 5);
  bench::SideBySide table;
  bench::compareMoves(table, builder);
  bench::compareCopies(table, builder);
  bench::measureSearch(table);
  table.print();
}
