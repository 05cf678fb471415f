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

using test::kMonday;
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
  builder.fullDay(50).fullPlan(kMonday, 600, 50, 1);
  ScheduleStore store(builder.path());
  const QString deletion = u"DELETE * FROM JH WHERE ZYDJ>=0"_qs;
  int asked = 0;
  {
    const ScheduleStore::Transaction save(store);
    const ScheduleStore::Watch watch(store, [&asked] { return ++asked < 2; });
    EXPECT_THROW(store.execute(deletion), WorkCancelled);
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
    memos.set(u"RQ", kMonday);
    EXPECT_EQ(faultOf([&] { memos.update(); }), StoreFault::Busy);
    EXPECT_TRUE(store.open(u"BW"_qs).isEmpty());
  }
  replaceBlocks(other, 1);
  EXPECT_EQ(store.open(u"SJ"_qs).count(), 1);
}

}  // namespace
}  // namespace vellora
