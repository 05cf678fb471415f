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

const QDate kFirstDay(2007, 3, 5);
constexpr int kCopies = 2;
constexpr int kBlocks = 12;

// One running copy of the program. What it saves tells which copy saved it, and in which round.
class Copy {
 public:
  Copy(const QString& path, int number) : store_(path), number_(number) {}

  // One round of saves, each tried again while the other copy keeps the schedule busy.
  void saveAll(int round) {
    untilNotBusy([&] { storeMemo(store_, ownDay(round), mark(round)); });
    untilNotBusy([&] { storeMemo(store_, kFirstDay.addDays(-1), mark(round)); });
    untilNotBusy([&] { addItem(round); });
    untilNotBusy([&] { saveBlocks(round); });
    saveDay(round);
  }
  // How many of the rounds' saves are not in the schedule.
  int lostOf(int rounds) {
    int lost = 0;
    for (int round = 0; round < rounds; ++round) {
      if (memoOf(store_, ownDay(round)) != mark(round)) ++lost;
      if (store_.open(statements::itemNamed(mark(round))).count() != 1) ++lost;
      if (store_.open(statements::plansOn(ownDay(round))).count() != kBlocks) ++lost;
    }
    return lost;
  }

 private:
  // Busy is the only thing that a save may meet.
  template <typename Save>
  static void untilNotBusy(Save save) {
    for (;;) {
      try {
        return save();
      } catch (const StoreError& error) {
        if (error.fault() != StoreFault::Busy) throw;
      }
    }
  }

  QString mark(int round) const { return u"%1-%2"_qs.arg(number_).arg(round); }
  QDate ownDay(int round) const { return kFirstDay.addDays(round * kCopies + number_); }

  void addItem(int round) {
    Sheet sheet;
    setUpItemSheet(sheet);
    ItemCatalogue catalogue(store_);
    catalogue.filter(u"2-学习"_qs, sheet);
    catalogue.add({mark(round), mark(round), u"2-学习"_qs});
  }

  // Every block gets this copy's mark: the table must never mix those of both.
  void saveBlocks(int round) {
    Sheet sheet;
    setUpTimeBlocks(sheet);
    LoadTimeBlocks(store_, sheet);
    for (int row = 0; row < kBlocks; ++row) sheet.SetCellText(3, row, mark(round));
    SaveTimeBlocks(store_, sheet);
  }

  void saveDay(int round) {
    Sheet sheet;
    setUpDayRows(sheet);
    layOutBlockRows(sheet, TimeBlockList(store_));
    for (int row = 0; row < sheet.Rows(); ++row) sheet.SetCellText(kDayActivity, row, mark(round));
    const QString busy = u"另一个程序正在使用日程文件，请稍后再试。"_qs;
    QString failure = busy;
    while (failure == busy) {
      failure = writeDayPlan(store_, sheet, ownDay(round), {}, true).failure;
    }
    if (!failure.isEmpty()) throw std::runtime_error(failure.toStdString());
  }

  ScheduleStore store_;
  int number_;
};

// The result of a child: 0 when it saved and found everything again.
int liveAsCopy(const QString& path, int number) {
  Copy copy(path, number);
  QElapsedTimer life;
  life.start();
  int rounds = 0;
  const int seconds = test::isThorough() ? 60 : 0;
  while (rounds < 12 || !life.hasExpired(seconds * 1'000)) copy.saveAll(rounds++);
  return std::min(copy.lostOf(rounds), 127);
}

}  // namespace

TEST(TwoCopies, OfTheProgramSaveAtTheSameTimeAndLoseNothing) {
  test::ScheduleBuilder schedule;
  schedule.fullDay(kBlocks);
  const auto copy = [&](int number) {
    return [path = schedule.path(), number] { return liveAsCopy(path, number); };
  };
  const int one = test::startChild(copy(0));
  const int other = test::startChild(copy(1));
  EXPECT_EQ(test::endOf(one), 0);
  EXPECT_EQ(test::endOf(other), 0);

  ScheduleStore store = schedule.store();
  EXPECT_EQ(store.open(statements::memoOn(kFirstDay.addDays(-1))).count(), 1)
      << "of the shared day";
  auto blocks = store.open(statements::allBlocks());
  EXPECT_EQ(blocks.count(), kBlocks);
  const QString mark = blocks.text(u"sjkm");
  for (; !blocks.atEnd(); blocks.moveNext()) EXPECT_EQ(blocks.text(u"sjkm"), mark);
}

}  // namespace vellora
