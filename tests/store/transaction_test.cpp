#include "store_fixture.h"

#include <QFile>

namespace vellora {
namespace {

class Transactions : public StoreTest {
 protected:
  ScheduleStore other{builder.path(), kHardlyPatient};
};

TEST_F(Transactions, SaveEverythingAtTheCommitOrNothingWithoutOne) {
  for (const bool commits : {false, true}) {
    ScheduleStore::Transaction save(store);
    store.execute(statements::deleteBlocks());
    EXPECT_EQ(count(u"SJ"_qs), 0);
    EXPECT_EQ(other.open(u"SJ"_qs).count(), 2);
    EXPECT_EQ(faultOf([&] { const ScheduleStore::Transaction second(store); }), StoreFault::Other);
    if (!commits) continue;
    {
      RowCursor rows = other.readOnce(u"SJ"_qs);
      ASSERT_TRUE(rows.next());
      EXPECT_EQ(faultOf([&] { save.commit(); }), StoreFault::Busy) << "a reader is in the way";
    }
    save.commit();
  }
  EXPECT_EQ(other.open(u"SJ"_qs).count(), 0);
}

TEST_F(Transactions, WaitNoLongerThanTheyAreAllowedTo) {
  int asked = 0;
  ScheduleStore patient(builder.path(), std::chrono::hours(1), [&asked] { return ++asked < 3; });
  const ScheduleStore::Transaction save(store);
  EXPECT_EQ(faultOf([&] { const ScheduleStore::Transaction second(patient); }), StoreFault::Busy);
  EXPECT_EQ(asked, 3);
}

TEST_F(Transactions, ForReadingKeepOneViewAndLetGoOfTheFileAfterwards) {
  {
    const ScheduleStore::ReadTransaction view(store);
    EXPECT_EQ(count(u"SJ"_qs), 2);
    EXPECT_EQ(faultOf([&] { other.execute(statements::deleteBlocks()); }), StoreFault::Busy);
    EXPECT_EQ(count(u"SJ"_qs), 2);
  }
  EXPECT_EQ(other.execute(statements::deleteBlocks()), 2);
  EXPECT_EQ(count(u"SJ"_qs), 0);
}

TEST_F(Transactions, NoticeThatTheScheduleWasReplacedOrIsGone) {
  const QString old = builder.folder() + u"/old.mdb";
  ASSERT_TRUE(QFile::rename(builder.path(), old));
  for (const bool isReplaced : {false, true}) {
    ASSERT_TRUE(!isReplaced || QFile::copy(old, builder.path()));
    EXPECT_EQ(faultOf([&] { const ScheduleStore::ReadTransaction view(store); }),
              StoreFault::FileMoved);
    EXPECT_EQ(faultOf([&] { const ScheduleStore::Transaction save(store); }),
              StoreFault::FileMoved);
    EXPECT_EQ(faultOf([&] { store.execute(statements::deletePlans()); }), StoreFault::FileMoved);
  }
}

TEST_F(Transactions, AWatchEndsALongStatementWithoutATrace) {
  builder.fullPlan(kMonday.addDays(7), 600, 50, 1);
  const QString deletion = u"DELETE * FROM JH WHERE ZYDJ>=0"_qs;
  const qsizetype before = count(u"JH"_qs);
  int asked = 0;
  {
    const ScheduleStore::Watch watch(store, [&asked] { return ++asked < 2; });
    EXPECT_THROW(store.execute(deletion), WorkCancelled);
  }
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(count(u"JH"_qs), before);
  EXPECT_GE(store.execute(deletion), 30'000) << "nobody is asked any more";
}

}  // namespace
}  // namespace vellora
