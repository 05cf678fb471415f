#include "store/undo_log.h"

#include "store/schedule_store.h"
#include "store/statements.h"
#include "support/schedule_builder.h"
#include "support/schedule_dump.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <gtest/gtest.h>
#include <random>

namespace vellora {
namespace {

using test::dumpOf;
using test::faultOf;
using test::kMonday;

class UndoLogTest : public testing::Test {
 protected:
  UndoLogTest() {
    builder_.fullDay(3).items(4).fullPlan(kMonday, 5, 3, 4).memo(kMonday, u"备'忘"_qs);
  }

  void changeByChance(std::mt19937& random) {
    const auto below = [&](unsigned end) { return static_cast<int>(random() % end); };
    ScheduleStore::Transaction save(store_);
    for (int i = below(4); i >= 0; --i) {
      Recordset rows = store_.open(QStringList{u"JH"_qs, u"BW"_qs, u"HD"_qs}[below(3)]);
      if (rows.isEmpty() || below(3) == 0) {
        rows.addNew();
      } else {
        rows.moveTo(below(static_cast<unsigned>(rows.count())));
        if (below(2) == 0) {
          rows.remove();
          continue;
        }
        rows.edit();
      }
      rows.set(rows.columnName(1), u"改 '%1'\n😀"_qs.arg(random()));
      rows.update();
    }
    if (below(20) == 0) store_.execute(statements::deletePlans());
    save.commit();
  }

  test::ScheduleBuilder builder_;
  ScheduleStore store_ = builder_.store();
  UndoLog& log_ = store_.undoLog();
};

}  // namespace

TEST_F(UndoLogTest, LeadsBackAndForthThroughEveryStateOfRandomChanges) {
  std::mt19937 random(7);
  std::vector<QStringList> states{dumpOf(store_)};
  for (int i = 0; i < 100; ++i) {
    log_.setName(QString::number(i));
    changeByChance(random);
    states.push_back(dumpOf(store_));
  }
  std::size_t at = states.size() - 1;
  for (int i = 0; i < 600; ++i) {
    const bool back = random() % 2 == 0;
    if (back ? !log_.undoName() : !log_.redoName()) continue;
    EXPECT_EQ(back ? *log_.undoName() : *log_.redoName(), QString::number(back ? at - 1 : at));
    back ? log_.undo() : log_.redo();
    at += back ? -1 : 1;
    ASSERT_EQ(dumpOf(store_), states[at]) << i;
  }
  changeByChance(random);
  EXPECT_FALSE(log_.redoName()) << "a new step ends what can be done again";
}

TEST_F(UndoLogTest, NeverOverwritesWhatHasChangedSince) {
  log_.setName(u"清空"_qs);
  EXPECT_EQ(store_.execute(statements::deletePlansOfActivity(u"活动001"_qs)), 4);
  builder_.plan(kMonday, u"001"_qs, u"别人的"_qs);  // has the number of a row that went
  builder_.sql(u"UPDATE JH SET rowid=1 WHERE HDMC='别人的'"_qs);
  const QStringList before = dumpOf(store_);
  EXPECT_EQ(test::descriptionOf([&] { log_.undo(); }),
            u"不能撤消“清空”：“活动计划”中的有关内容后来又有改动。");
  EXPECT_EQ(dumpOf(store_), before);
  builder_.sql(u"DELETE FROM JH WHERE HDMC='别人的'"_qs);
  log_.undo();
  EXPECT_EQ(store_.open(statements::plansOfActivity(u"活动001"_qs)).count(), 4);
  builder_.sql(u"UPDATE JH SET HDYQ='后来'"_qs);
  EXPECT_EQ(faultOf([&] { log_.redo(); }), StoreFault::RowChanged);
}

TEST_F(UndoLogTest, KeepsNoStepThatWasRolledBackOrIsTooManyOrTooLarge) {
  {
    const ScheduleStore::Transaction givenUp(store_);
    store_.execute(statements::deletePlans());
  }
  EXPECT_FALSE(log_.undoName());
  for (int i = 0; i < 205; ++i) store_.execute(u"UPDATE BW SET Memo='%1'"_qs.arg(i));
  { const ScheduleStore::ReadTransaction looksOnly(store_); }
  int steps = 0;
  for (; log_.undoName(); ++steps) log_.undo();
  EXPECT_EQ(steps, 200);
  EXPECT_EQ(store_.open(u"BW"_qs).text(u"Memo"), u"4");
  {
    const UndoLog::Pause restoring(log_);
    store_.execute(statements::deletePlans());
  }
  EXPECT_FALSE(log_.undoName() || log_.redoName());
  const QString large(8'000'000, u'长');  // thrice in UTF-8, and the old and the new one
  for (int i = 0; i < 4; ++i) store_.execute(u"UPDATE BW SET Memo='%1%2'"_qs.arg(large).arg(i));
  for (steps = 0; log_.undoName(); ++steps) log_.undo();
  EXPECT_EQ(steps, 1);
}

}  // namespace vellora
