// A whole fill of the board's sheet, look-ups, texts, tags, colours and alignment, beside the same
// look-ups alone, prepared, on the engine's own interface in one read transaction.

#include "schedule/week.h"
#include "support/raw_board.h"
#include "support/schedule_builder.h"
#include "support/side_by_side.h"

namespace vellora::bench {
namespace {

constexpr int kBlocks = 50;
constexpr int kActivities = 60;
constexpr int kRepetitions = 301;
const QDate kFirstDay(2007, 1, 1);

void compareFills(SideBySide& table, const char* what, qint64 days) {
  test::ScheduleBuilder builder;
  builder.fullDay(kBlocks).items(kActivities).fullPlan(kFirstDay, days, kBlocks, kActivities);
  const QDate first = kFirstDay.addDays(days / 2);
  ScheduleStore store(builder.path());
  RawBoard raw(builder.path(), first);
  Sheet sheet;
  sheet.SetCols(kBoardCols);
  BuildTimeRows(store, sheet);
  table.compare(
      what, [&] { FillWeek(store, sheet, first); }, [&] { raw.fill(); }, kRepetitions, 1.5);
}

}  // namespace
}  // namespace vellora::bench

int main() {
  using namespace vellora::bench;
  SideBySide table;
  compareFills(table, "board fill, 10 years (182,500 entries)", 3'650);
  compareFills(table, "board fill, 20 years (365,000 entries)", 7'300);
  compareFills(table, "board fill, 1,000,000 entries", 20'000);
  table.print();
}
