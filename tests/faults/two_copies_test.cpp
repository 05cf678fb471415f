#include "faults/child.h"
#include "routine/category.h"
#include "schedule/day_plan.h"
#include "schedule/items.h"
#include "schedule/memos.h"
#include "schedule/time_blocks.h"
#include "store/statements.h"
#include "store/store_error.h"
#include "support/schedule_builder.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace vellora {
namespace {

const QDate kTermStart(2007, 3, 5);
constexpr int kBlocks = 12;

// Busy is the only thing that a save may meet.
void untilNotBusy(const std::function<QString()>& save) {
  const QString busy = u"另一个程序正在使用日程文件，请稍后再试。"_qs;
  QString failure = busy;
  while (failure == busy) {
    try {
      failure = save();
    } catch (const StoreError& error) {
      failure = error.description();
    }
  }
  if (!failure.isEmpty()) throw std::runtime_error(failure.toStdString());
}

// One running copy of the program: saves an item and a day's memo and plan that are its own and the
// memo and the time blocks that are everybody's, all marked with the copy and the round. Gives how
// many of its own are not in the schedule at last.
int liveAsCopy(const QString& path, int number) {
  ScheduleStore store(path);
  int round = 0;
  const auto mark = [&] { return u"%1-%2"_qs.arg(number).arg(round); };
  const auto ownDay = [&] { return kTermStart.addDays(round * 2 + number); };
  const std::function<QString()> saves[]{
      [&] { return storeMemo(store, ownDay(), mark()), QString(); },
      [&] { return storeMemo(store, kTermStart.addDays(-1), mark()), QString(); },
      [&] {
        Sheet items;
        setUpItemSheet(items);
        ItemCatalogue catalogue(store);
        catalogue.filter(u"2-学习"_qs, items);
        return catalogue.add({mark(), mark(), u"2-学习"_qs}), QString();
      },
      [&] {
        Sheet blocks;
        setUpTimeBlocks(blocks);
        LoadTimeBlocks(store, blocks);
        for (int row = 0; row < kBlocks; ++row) blocks.SetCellText(3, row, mark());
        return SaveTimeBlocks(store, blocks), QString();
      },
      [&] {
        Sheet day;
        setUpDayRows(day);
        layOutBlockRows(day, TimeBlockList(store));
        for (int row = 0; row < day.Rows(); ++row) day.SetCellText(kDayActivity, row, mark());
        return writeDayPlan(store, day, ownDay(), {}, true).failure;
      }};
  QElapsedTimer life;
  life.start();
  for (; round < 12 || !life.hasExpired(test::isThorough() ? 60'000 : 0); ++round) {
    for (const auto& save : saves) untilNotBusy(save);
  }
  int lost = 0;
  while (round-- > 0) {
    lost += memoOf(store, ownDay()) != mark();
    lost += store.open(statements::itemNamed(mark())).count() != 1;
    lost += store.open(statements::plansOn(ownDay())).count() != kBlocks;
  }
  return std::min(lost, 127);
}

}  // namespace

TEST(TwoCopies, OfTheProgramSaveAtTheSameTimeAndLoseNothing) {
  test::ScheduleBuilder schedule;
  schedule.fullDay(kBlocks);
  const int one = test::startChild([&] { return liveAsCopy(schedule.path(), 0); });
  const int other = test::startChild([&] { return liveAsCopy(schedule.path(), 1); });
  for (const int copy : {one, other}) EXPECT_EQ(test::endOf(copy), 0);

  ScheduleStore store = schedule.store();
  EXPECT_EQ(store.open(statements::memoOn(kTermStart.addDays(-1))).count(), 1) << "the shared day";
  auto blocks = store.open(statements::allBlocks());
  EXPECT_EQ(blocks.count(), kBlocks);
  const QString mark = blocks.text(u"sjkm");
  for (; !blocks.atEnd(); blocks.moveNext()) EXPECT_EQ(blocks.text(u"sjkm"), mark);
}

}  // namespace vellora
