#include "schedule/time_use.h"

#include "routine/category.h"
#include "schedule/week_use.h"
#include "support/schedule_builder.h"
#include "support/text_output.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace vellora {
namespace {

const QDate kDay(2007, 3, 5);

// A schedule made by chance, and its use of the week to each side of kDay, counted entry by entry.
// Blocks and activities without a row of their own are planned as well, and count nowhere.
class RandomPlans {
 public:
  explicit RandomPlans(unsigned seed) : random_(seed) {
    for (int i = 0; i < kItems; ++i) {
      builder.item(QString::number(i), nameOf(i), categoryOf(i));
    }
    for (int i = 0; i < kBlocks; ++i) addBlock(i);
    for (int i = 0; i < 500; ++i) plan(below(60) - 30, below(kBlocks + 2), below(kItems + 2));
  }

  struct Use {
    qint64 minutes = 0;
    int entries = 0;
  };
  test::ScheduleBuilder builder;
  std::map<QString, qint64> byCategory;
  std::map<std::pair<QString, QString>, Use> byActivity;

 private:
  static constexpr int kItems = 12;
  static constexpr int kBlocks = 10;

  int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  static QString nameOf(int item) { return u"写'作%1"_qs.arg(item); }
  static QString categoryOf(int item) {
    return item == 0 ? u"杂项"_qs : categories()[static_cast<std::size_t>(item) % 6].label;
  }
  void addBlock(int code) {
    const QTime start(below(24), below(60), below(60));
    const QTime end(below(24), below(60), below(60));
    lengths_.push_back((end.hour() - start.hour()) * 60 + end.minute() - start.minute());
    builder.block(QString::number(code), start.toString(u"HH:mm:ss"), end.toString(u"HH:mm:ss"));
  }
  void plan(int days, int block, int item) {
    const QString activity = nameOf(item);
    builder.plan(kDay.addDays(days), QString::number(block), activity);
    if (block >= kBlocks || item >= kItems || std::abs(days) > 7) return;
    const qint64 length = lengths_[static_cast<std::size_t>(block)];
    byCategory[categoryOf(item)] += length;
    Use& use = byActivity[{categoryOf(item), activity}];
    use.minutes += length;
    ++use.entries;
  }

  std::mt19937 random_;
  std::vector<qint64> lengths_;
};

}  // namespace

TEST(TimeUse, RoundsSharesToTwoDecimalsWithTiesToTheEvenNeighbour) {
  const struct {
    qint64 minutes;
    qint64 total;
    const char16_t* text;
  } kShares[]{{1, 4, u"25"},    {1, 8, u"12.5"},  {1, 3, u"33.33"},  {2, 3, u"66.67"},
              {1, 32, u"3.12"}, {3, 32, u"9.38"}, {1, 20'000, u"0"}, {3, 20'000, u"0.02"},
              {7, 7, u"100"},   {-1, 4, u"-25"},  {-5, -20, u"25"}};
  for (const auto& [minutes, total, text] : kShares) {
    EXPECT_EQ(percentText(minutes, total), QString::fromUtf16(text)) << minutes << '/' << total;
  }
  EXPECT_EQ(barWidth(1, 7), 514);
  EXPECT_EQ(shareText(60'061, 60'061), u"共1001小时1分钟 占100%"_qs);
  EXPECT_EQ(totalText(kDay, kDay.addDays(1), 59),
            u"从2007-03-05到2007-03-06作息总时间为:0小时59分钟"_qs);
  EXPECT_EQ(durationText(-90), u"-2小时30分钟"_qs) << "whole hours down";
}

TEST(TimeUse, AgreesWithARecountOfRandomPlans) {
  const QDate first = kDay.addDays(-7);
  const QDate last = kDay.addDays(7);
  for (const unsigned seed : {1U, 2U, 3U}) {
    SCOPED_TRACE(seed);
    const RandomPlans plans(seed);
    ScheduleStore store = plans.builder.store();
    const auto uses = useByCategory(store, first, last);
    std::map<QString, qint64> found;
    for (const CategoryUse& use : uses) found[use.label] = use.minutes;
    EXPECT_EQ(found, plans.byCategory);
    EXPECT_TRUE(useByCategory(store, last, first).empty()) << "reversed range";

    const qint64 total = totalMinutes(uses);
    for (const QDate begin : {first, first.addDays(-kMostSingleDays)}) {  // by days, and by weeks
      QDate next = begin;
      for (const PeriodUse& use : useByPeriod(store, begin, last)) {
        EXPECT_EQ(use.first, next);
        EXPECT_TRUE(use.first == use.last || use.last == last || use.last.dayOfWeek() == 7);
        next = use.last.addDays(1);
        qint64 recounted = 0;
        for (const CategoryUse& each : useByCategory(store, use.first, use.last)) {
          recounted += each.minutes;
          const auto index = categoryIndex(each.label);
          EXPECT_EQ(index ? use.planned[static_cast<std::size_t>(*index)] : use.other,
                    each.minutes);
        }
        EXPECT_EQ(use.plannedInAll(), recounted);
        EXPECT_GE(use.free, 0);
      }
      EXPECT_EQ(next, last.addDays(1));
    }
    Sheet sheet;
    setUpTimeUse(sheet);
    listActivities(sheet, store, first, last, total);
    ASSERT_EQ(sheet.Rows(), static_cast<int>(plans.byActivity.size()));
    int row = 0;
    for (const auto& [names, use] : plans.byActivity) {
      const QString texts[]{names.first, names.second, durationText(use.minutes),
                            QString::number(use.entries), percentText(use.minutes, total)};
      for (int col = 0; col < 5; ++col) EXPECT_EQ(sheet.GetCellText(col, row), texts[col]);
      ++row;
    }
  }
}

}  // namespace vellora
