#include "routine/calendar_text.h"
#include "routine/category.h"
#include "routine/number_text.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(CalendarText, PadsDatesAndTimesToTheirFixedForms) {
  for (QDate day(1, 1, 1); day.year() < 9999; day = day.addDays(97)) {
    ASSERT_EQ(isoDate(day), day.toString(Qt::ISODate));
  }
  EXPECT_EQ(longDate({2007, 3, 5}), u"2007年3月5日"_qs);
  EXPECT_EQ(monthAndDay({2007, 3, 5}), u"03月05日"_qs);
  EXPECT_EQ(blockHours({8, 5, 59}, {9, 30}), u"08:05-09:30"_qs);
  EXPECT_EQ(isoDate({}) + longDate({}) + weekdayName({}) + shortTime({}), QString());
  const QString names = u"一二三四五六日"_qs;
  for (int i = 0; i < 7; ++i) EXPECT_EQ(weekdayName({2007, 3, 5 + i}), u"星期"_qs + names[i]);
}

TEST(Category, IsFoundOnlyByItsExactLabelAndCarriesTheColourThatItemsStore) {
  const std::pair<QString, PackedColour> kCategories[]{
      {u"1-工作"_qs, 255},   {u"2-学习"_qs, 16711680}, {u"3-运动"_qs, 65280},
      {u"4-社交"_qs, 49152}, {u"5-娱乐"_qs, 16711935}, {u"6-休息"_qs, 0}};
  for (std::size_t i = 0; i < kCategoryCount; ++i) {
    EXPECT_EQ(categoryIndex(kCategories[i].first), i);
    EXPECT_EQ(categories()[i].colour, kCategories[i].second);
  }
  for (const auto& other : {u"工作"_qs, u"1-工作 "_qs, u"所有类别"_qs, QString()}) {
    EXPECT_EQ(categoryIndex(other), std::nullopt);
  }
}

TEST(NumberText, ReadsLeadingDigitsAndNothingElse) {
  const std::pair<QString, double> kTexts[]{{u"3级"_qs, 3},
                                            {u"2.5级"_qs, 2.5},
                                            {u"7."_qs, 7},
                                            {u"x3"_qs, 0},
                                            {{}, 0},
                                            {u".5"_qs, 0},
                                            {u"-4"_qs, 0},
                                            {u" 4"_qs, 0},
                                            {u"005"_qs, 5},
                                            {u"1e3"_qs, 1},
                                            {u"３．５级"_qs, 3.5},
                                            {u"1.2.3"_qs, 1.2},
                                            {u"99999999999"_qs, 99999999999.0}};
  for (const auto& [text, number] : kTexts)
    EXPECT_EQ(numericValue(text), number) << text.toStdString();
}

TEST(Colour, EveryCategoryIsReadableOnItsPapersByItselfOrByItsEdge) {
  EXPECT_NEAR(contrastOf(kBlack, kWhite), 21, 0.01);
  EXPECT_NEAR(contrastOf(packColour(0, 255, 0), packColour(230, 220, 255)), 1.05, 0.01);
  for (const Category& category : categories()) {
    for (const PackedColour paper : {kWhite, kBlack, packColour(230, 220, 255)}) {
      const auto edge = edgeFor(category.colour, paper, kEdgeContrast);
      EXPECT_GE(contrastOf(edge.value_or(category.colour), paper), kReadableContrast)
          << category.label.toStdString();
    }
  }
}

}  // namespace vellora
