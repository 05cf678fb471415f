#include "schedule/plan_moves.h"

#include "schedule_fixture.h"

namespace vellora {
namespace {

using test::kMonday;

class PlanMovesTest : public test::ScheduleTest {
 protected:
  PlanMovesTest() {
    builder_.plan(kMonday, u"001"_qs, u"读书"_qs, u"第一章"_qs, 3)
        .plan(kMonday, u"001"_qs, u"同时"_qs)
        .plan(kMonday.addDays(1), u"001"_qs, u"跑步"_qs)
        .plan(kMonday.addDays(2), u"002"_qs, u"休息"_qs);
  }
  std::vector<PlannedBlock> week() { return plannedBlocks(store_, kMonday, kMonday.addDays(6)); }
  std::vector<PlannedBlock> first() { return {*plannedBlock(store_, {kMonday, u"001"_qs})}; }
  QString conflicts(const PlanMoves& moves) {
    QStringList lines;
    for (const auto& [place, holder, newcomer] : conflictsOf(store_, moves)) {
      lines << QString::number(kMonday.daysTo(place.first)) + place.second + holder + u'<' +
                   newcomer;
    }
    return lines.join(u' ');
  }
  // Days from Monday on, block and activity.
  QString plans() {
    QStringList lines;
    for (const QString& line : saved()) {
      const QStringList texts = line.split(u'|');
      lines << QString::number(kMonday.daysTo(QDate::fromString(texts[0], Qt::ISODate))) +
                   texts[1] + texts[2];
    }
    return lines.join(u' ');
  }
};

}  // namespace

TEST_F(PlanMovesTest, MoveAndCopyAllEntriesOfABlock) {
  const PlanMoves move = shifted(first(), 3, false);
  EXPECT_EQ(conflicts(move), QString());
  EXPECT_EQ(carryOut(store_, move), 1);
  EXPECT_EQ(plans(), u"1001跑步 2002休息 3001同时 3001读书");
  EXPECT_TRUE(saved().contains(u"2007-03-08|001|读书|第一章|3"_qs));
  carryOut(store_, shifted(week(), 7, true));
  EXPECT_EQ(plans(), u"1001跑步 2002休息 3001同时 3001读书 8001跑步 9002休息 10001同时 10001读书");
  EXPECT_EQ(conflicts(shifted(week(), 7, true)), QString()) << "the same is there already";
}

TEST_F(PlanMovesTest, AChainLeavesNothingBehindAndWhatIsKeptHoldsUpTheRest) {
  const PlanMoves chain = shifted(week(), 1, false);  // Monday's goes to Tuesday's place
  EXPECT_EQ(conflicts(chain), QString());
  builder_.plan(kMonday.addDays(2), u"001"_qs, u"别人"_qs);
  EXPECT_EQ(conflicts(chain), u"2001别人<跑步");
  const QString before = plans();
  EXPECT_THROW(carryOut(store_, chain, {}, [](const WorkStep& step) { return step.done < 5; }),
               WorkCancelled);
  EXPECT_EQ(plans(), before);
  EXPECT_EQ(carryOut(store_, chain, {{kMonday.addDays(2), u"001"_qs}}), 1);
  EXPECT_EQ(plans(), u"0001同时 0001读书 1001跑步 2001别人 3002休息");
  EXPECT_EQ(carryOut(store_, shifted(week(), 1, false)), 4);
  EXPECT_EQ(plans(), u"1001同时 1001读书 2001跑步 3001别人 4002休息");
}

TEST_F(PlanMovesTest, WhatHasChangedMeanwhileIsNotMoved) {
  const PlanMoves move = shifted(first(), 3, false);
  builder_.sql(u"UPDATE JH SET HDYQ='后来' WHERE HDMC='同时'"_qs);
  const QStringList before = saved();
  EXPECT_EQ(test::faultOf([&] { carryOut(store_, move); }), StoreFault::RowChanged);
  EXPECT_EQ(saved(), before);
}

TEST_F(PlanMovesTest, TakenPlacesAreReplacedAndTheCalendarEndsIt) {
  builder_.plan(kMonday.addDays(7), u"001"_qs, u"占用"_qs)
      .plan(kMonday.addDays(9), u"001"_qs, u"读书"_qs)
      .plan(kMonday.addDays(14), u"001"_qs, u"读书"_qs);
  const PlanMoves copies = repeatedWeekly(first(), 3);
  EXPECT_EQ(conflicts(copies), u"7001占用<读书、同时 14001读书<读书、同时");
  carryOut(store_, copies, {{kMonday.addDays(7), u"001"_qs}});
  EXPECT_EQ(plans(),
            u"0001同时 0001读书 1001跑步 2002休息 7001占用 9001读书 14001同时 14001读书 21001同时 "
            u"21001读书");
  EXPECT_EQ(carryOut(store_, cancelled(sameFromHereOn(store_, first().front()))), 3);
  EXPECT_EQ(plans(), u"1001跑步 2002休息 7001占用 9001读书")
      << "the same activity, block and weekday";
  const std::vector<PlannedBlock> last{{{QDate(9999, 12, 30), u"001"_qs}, {{u"读书"_qs, {}, {}}}}};
  EXPECT_EQ(repeatedWeekly(last, 5).size(), 0U);
  EXPECT_EQ(shifted(last, 1, false).size(), 1U);
}

}  // namespace vellora
