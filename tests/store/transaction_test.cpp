#include "store/schedule_store.h"
#include "store/statements.h"
#include "support/failing_disk.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vellora {
namespace {

using test::descriptionOf;
using test::FailingDisk;
using test::faultOf;
using test::ScheduleBuilder;

const QDate kDay(2007, 3, 5);
constexpr std::chrono::milliseconds kHardlyPatient(5);

// Deletes every block and writes some new ones, as an editor's save does.
void replaceBlocks(ScheduleStore& store, int count) {
  ScheduleStore::Transaction save(store);
  store.execute(statements::deleteBlocks());
  Recordset blocks = store.open(statements::allBlocks());
  for (int i = 0; i < count; ++i) {
    blocks.addNew();
    blocks.set(u"SJKH", QString::number(i));
    blocks.set(u"sjkm", QString(200, u'新'));
    blocks.update();
  }
  save.commit();
}

TEST(Transaction, SavesEverythingAtTheCommitOrNothingWithoutOne) {
  ScheduleBuilder builder;
  builder.fullDay(3);
  ScheduleStore store(builder.path());
  {
    const ScheduleStore::Transaction save(store);
    store.execute(statements::deleteBlocks());
    EXPECT_TRUE(store.open(statements::allBlocks()).isEmpty());
    EXPECT_EQ(faultOf([&] { const ScheduleStore::Transaction second(store); }), StoreFault::Other);
  }
  EXPECT_EQ(store.open(statements::allBlocks()).count(), 3);
  replaceBlocks(store, 2);
  EXPECT_EQ(builder.store().open(statements::allBlocks()).count(), 2);
}

TEST(Transaction, AWriteThatFailsAnywhereLeavesTheOldTable) {
  const struct {
    int code;
    StoreFault fault;
  } failures[] = {{SQLITE_FULL, StoreFault::DiskFull},
                  {SQLITE_IOERR_WRITE, StoreFault::InputOutput}};
  for (const auto& [code, fault] : failures) {
    ScheduleBuilder builder;
    builder.fullDay(40);
    int writes = 0;
    for (std::optional<StoreFault> met = fault; met; ++writes) {
      FailingDisk disk;
      ScheduleStore store(builder.path());
      disk.failWritesAfter(writes, code);
      met = faultOf([&] { replaceBlocks(store, 60); });
      disk.repair();
      EXPECT_EQ(met.value_or(fault), fault) << "after " << writes << " writes";
      EXPECT_EQ(store.open(statements::allBlocks()).count(), met ? 40 : 60);
      EXPECT_EQ(builder.store().open(statements::allBlocks()).count(), met ? 40 : 60);
    }
    EXPECT_GT(writes, 5) << "the save writes several pages";
  }
}

TEST(Transaction, ASaveThatWasKilledIsUndoneWhenTheScheduleIsOpenedNext) {
  int unfinished = 0;
  for (int writes = 0; writes < 60; writes += 3) {
    ScheduleBuilder builder;
    builder.fullDay(40);
    const QString left = builder.folder() + u"/left.mdb";
    FailingDisk disk;
    {
      ScheduleStore store(builder.path());
      disk.failWritesAfter(writes, SQLITE_IOERR_WRITE);
      faultOf([&] { replaceBlocks(store, 400); });
      // What the disk holds at this moment is what a killed program leaves behind.
      ASSERT_TRUE(QFile::copy(builder.path(), left));
      QFile::copy(builder.path() + u"-journal", left + u"-journal");
    }
    if (QFileInfo(left + u"-journal").size() <= 0) continue;
    ++unfinished;
    disk.repair();
    disk.makeReadOnly();
    const auto opening = faultOf([&] { const ScheduleStore store(left); });
    EXPECT_EQ(opening.value_or(StoreFault::ReadOnly), StoreFault::ReadOnly) << writes;
    disk.repair();
    ScheduleStore store(left);
    EXPECT_EQ(store.open(statements::allBlocks()).count(), 40) << "after " << writes << " writes";
  }
  EXPECT_GT(unfinished, 3);
}

TEST(Transaction, TwoProgramsWaitForEachOtherAndNeitherLosesItsSave) {
  ScheduleBuilder builder;
  ScheduleStore one(builder.path(), kHardlyPatient);
  ScheduleStore other(builder.path(), kHardlyPatient);
  Recordset items = other.open(u"HD"_qs);
  {
    ScheduleStore::Transaction save(one);
    items.addNew();
    items.set(u"HDMC", u"晨跑"_qs);
    EXPECT_EQ(faultOf([&] { items.update(); }), StoreFault::Busy);
    EXPECT_EQ(descriptionOf([&] { const ScheduleStore::Transaction second(other); }),
              u"另一个程序正在使用日程文件，请稍后再试。"_qs);
    one.execute(statements::deletePlans());
    save.commit();
  }
  items.update();
  EXPECT_EQ(one.open(u"HD"_qs).count(), 1);
}

TEST(Transaction, WaitsNoLongerThanItIsAllowedTo) {
  ScheduleBuilder builder;
  ScheduleStore one(builder.path());
  int asked = 0;
  ScheduleStore other(builder.path(), std::chrono::hours(1), [&asked] { return ++asked < 3; });
  const ScheduleStore::Transaction save(one);
  EXPECT_EQ(faultOf([&] { const ScheduleStore::Transaction second(other); }), StoreFault::Busy);
  EXPECT_EQ(asked, 3);
}

TEST(Transaction, NoticesThatTheScheduleWasReplacedOrIsGone) {
  const ScheduleBuilder builder;
  ScheduleStore store(builder.path());
  ASSERT_TRUE(QFile::rename(builder.path(), builder.folder() + u"/old.mdb"));
  const auto isMoved = [&] {
    return faultOf([&] { const ScheduleStore::ReadTransaction view(store); }) ==
               StoreFault::FileMoved &&
           faultOf([&] { replaceBlocks(store, 1); }) == StoreFault::FileMoved &&
           faultOf([&] { store.execute(statements::deletePlans()); }) == StoreFault::FileMoved;
  };
  EXPECT_TRUE(isMoved());
  ASSERT_TRUE(QFile::copy(builder.folder() + u"/old.mdb", builder.path()));
  EXPECT_TRUE(isMoved());
}

TEST(Watch, EndsALongStatementWithoutATrace) {
  ScheduleBuilder builder;
  builder.fullDay(50).fullPlan(kDay, 600, 50, 1);
  ScheduleStore store(builder.path());
  const QString deletion = u"DELETE * FROM JH WHERE ZYDJ>=0"_qs;
  int asked = 0;
  {
    const ScheduleStore::Transaction save(store);
    const ScheduleStore::Watch watch(store, [&asked] { return ++asked < 2; });
    EXPECT_THROW(store.execute(deletion), WorkGivenUp);
  }
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(store.execute(deletion), 30'000) << "nobody is asked any more";
}

TEST(Transaction, ACommitThatMeetsAReaderCanBeTriedAgain) {
  ScheduleBuilder builder;
  builder.item(u"001"_qs, u"晨跑"_qs);
  ScheduleStore writer(builder.path(), kHardlyPatient);
  ScheduleStore reader(builder.path(), kHardlyPatient);
  ScheduleStore::Transaction save(writer);
  writer.execute(u"DELETE * FROM HD"_qs);
  {
    RowCursor rows = reader.readOnce(u"HD"_qs);
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(faultOf([&] { save.commit(); }), StoreFault::Busy);
  }
  save.commit();
  EXPECT_TRUE(reader.open(u"HD"_qs).isEmpty());
}

TEST(ReadTransaction, KeepsOneViewAndLetsGoOfTheFileAfterwards) {
  ScheduleBuilder builder;
  ScheduleStore store(builder.path(), kHardlyPatient);
  ScheduleStore other(builder.path(), kHardlyPatient);
  {
    const ScheduleStore::ReadTransaction view(store);
    EXPECT_TRUE(store.open(u"BW"_qs).isEmpty());
    Recordset memos = other.open(u"BW"_qs);
    memos.addNew();
    memos.set(u"RQ", kDay);
    EXPECT_EQ(faultOf([&] { memos.update(); }), StoreFault::Busy);
    EXPECT_TRUE(store.open(u"BW"_qs).isEmpty());
  }
  replaceBlocks(other, 1);
  EXPECT_EQ(store.open(u"SJ"_qs).count(), 1);
}

TEST(ReadTransaction, InsideASaveItJoinsTheSave) {
  ScheduleBuilder builder;
  builder.fullDay(3);
  ScheduleStore store(builder.path());
  {
    const ScheduleStore::Transaction save(store);
    store.execute(statements::deleteBlocks());
    { const ScheduleStore::ReadTransaction view(store); }
  }
  EXPECT_EQ(store.open(statements::allBlocks()).count(), 3) << "the save was rolled back whole";
}

TEST(ASet, HoldsNoLockOnceItsRowsAreRead) {
  ScheduleBuilder builder;
  builder.fullDay(3);
  ScheduleStore store(builder.path(), kHardlyPatient);
  Recordset blocks = store.open(statements::allBlocks());
  EXPECT_EQ(blocks.count(), 3);
  ScheduleStore other(builder.path(), kHardlyPatient);
  replaceBlocks(other, 5);
  EXPECT_EQ(blocks.count(), 3);
  EXPECT_EQ(store.open(statements::allBlocks()).count(), 5);
}

}  // namespace
}  // namespace vellora
