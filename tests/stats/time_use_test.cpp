#include "schedule/time_use.h"

#include "routine/category.h"
#include "support/schedule_builder.h"
#include "support/text_output.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace vellora {
namespace {

const QDate kDay(2007, 3, 5);

QStringList rowTexts(const Sheet& sheet, int row) {
  QStringList texts;
  for (int col = 0; col < sheet.Cols(); ++col) texts << sheet.GetCellText(col, row);
  return texts;
}

// A schedule made by chance, and its use of the week to each side of kDay, counted entry by entry.
// Blocks and activities without a row of their own are planned as well, and count nowhere.
class RandomPlans {
 public:
  explicit RandomPlans(unsigned seed) : random_(seed) {
    for (int i = 0; i < kItems; ++i) {
      builder.item(QString::number(i), u"活动%1"_qs.arg(i), categoryOf(i));
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
    const QString activity = u"活动%1"_qs.arg(item);
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
  struct Case {
    qint64 minutes;
    qint64 total;
    const char16_t* text;
  };
  for (const Case& c :
       {Case{1, 4, u"25"}, Case{1, 8, u"12.5"}, Case{1, 3, u"33.33"}, Case{2, 3, u"66.67"},
        Case{1, 32, u"3.12"}, Case{3, 32, u"9.38"}, Case{1, 20'000, u"0"}, Case{3, 20'000, u"0.02"},
        Case{7, 7, u"100"}, Case{-1, 4, u"-25"}, Case{-5, -20, u"25"}}) {
    EXPECT_EQ(percentText(c.minutes, c.total), QString::fromUtf16(c.text))
        << c.minutes << '/' << c.total;
  }
}

TEST(TimeUse, CutsBarsDownAndSplitsMinutesIntoHours) {
  EXPECT_EQ(barWidth(1, 7), 514);
  EXPECT_EQ(barWidth(7, 7), 3600);
  EXPECT_EQ(durationText(59), u"0小时59分钟"_qs);
  EXPECT_EQ(durationText(60'061), u"1001小时1分钟"_qs);
  EXPECT_EQ(shareText(90, 360), u"共1小时30分钟 占25%"_qs);
  EXPECT_EQ(totalText(kDay, kDay.addDays(1), 61),
            u"从2007-03-05到2007-03-06作息总时间为:1小时1分钟"_qs);
}

TEST(TimeUse, RefusesSharesOfNothing) {
  EXPECT_THROW(percentText(0, 0), NoPlannedTime);
  EXPECT_THROW(barWidth(0, 0), NoPlannedTime);
}

TEST(TimeUse, KeepsTheRestOfARowWhoseShareCannotBeTold) {
  test::ScheduleBuilder builder;
  builder.block(u"z"_qs, u"12:00:00"_qs, u"12:00:00"_qs).item(u"001"_qs, u"写作"_qs, u"其他"_qs);
  builder.plan(kDay, u"z"_qs, u"写作"_qs);
  ScheduleStore store = builder.store();
  Sheet sheet;
  setUpTimeUse(sheet);
  EXPECT_THROW(listActivities(sheet, store, kDay, kDay, 0), NoPlannedTime);
  ASSERT_EQ(sheet.Rows(), 1);
  EXPECT_EQ(sheet.GetCellText(1, 0), u"写作"_qs);
  EXPECT_EQ(sheet.GetCellText(3, 0), u"1"_qs);
  EXPECT_EQ(sheet.GetCellText(4, 0), QString());
}

TEST(TimeUse, CountsOnlyEntriesOfTheRangeWhoseBlockAndActivityExist) {
  test::ScheduleBuilder builder;
  builder.block(u"a"_qs, u"08:00:59"_qs, u"09:30:00"_qs)
      .block(u"b"_qs, u"10:00:00"_qs, u"10:30:00"_qs);
  builder.item(u"001"_qs, u"写'作"_qs).item(u"002"_qs, u"其他"_qs, u"杂项"_qs);
  builder.plan(kDay, u"a"_qs, u"写'作"_qs).plan(kDay, u"b"_qs, u"写'作"_qs);
  builder.plan(kDay, u"b"_qs, u"其他"_qs).plan(kDay, u"x"_qs, u"写'作"_qs);
  builder.plan(kDay, u"a"_qs, u"已删"_qs).plan(kDay.addDays(1), u"a"_qs, u"写'作"_qs);
  ScheduleStore store = builder.store();
  const auto uses = useByCategory(store, kDay, kDay);
  ASSERT_EQ(totalMinutes(uses), 150);

  Sheet sheet;
  setUpTimeUse(sheet);
  listActivities(sheet, store, kDay, kDay, 150);
  ASSERT_EQ(sheet.Rows(), 2);
  EXPECT_EQ(rowTexts(sheet, 0),
            QStringList({u"1-工作"_qs, u"写'作"_qs, u"2小时0分钟"_qs, u"2"_qs, u"80"_qs}));
  EXPECT_EQ(rowTexts(sheet, 1),
            QStringList({u"杂项"_qs, u"其他"_qs, u"0小时30分钟"_qs, u"1"_qs, u"20"_qs}));
  EXPECT_EQ(sheet.StyleAt(1, 1).align, 33);
  EXPECT_EQ(sheet.StyleAt(4, 1).align, 36);
  EXPECT_TRUE(sheet.StyleAt(4, 1).border);
  EXPECT_TRUE(useByCategory(store, kDay.addDays(1), kDay).empty()) << "reversed range";
}

TEST(TimeUse, AgreesWithARecountOfRandomPlans) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    const RandomPlans plans(seed);
    ScheduleStore store = plans.builder.store();
    const auto uses = useByCategory(store, kDay.addDays(-7), kDay.addDays(7));
    std::map<QString, qint64> found;
    for (const CategoryUse& use : uses) found[use.label] = use.minutes;
    EXPECT_EQ(found, plans.byCategory) << "seed " << seed;

    const qint64 total = totalMinutes(uses);
    Sheet sheet;
    setUpTimeUse(sheet);
    listActivities(sheet, store, kDay.addDays(-7), kDay.addDays(7), total);
    ASSERT_EQ(sheet.Rows(), static_cast<int>(plans.byActivity.size()));
    int row = 0;
    for (const auto& [names, use] : plans.byActivity) {
      EXPECT_EQ(rowTexts(sheet, row++),
                QStringList({names.first, names.second, durationText(use.minutes),
                             QString::number(use.entries), percentText(use.minutes, total)}))
          << "seed " << seed;
    }
  }
}

}  // namespace vellora
