#include "routine/number_text.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(NumericValue, ReadsLeadingDigitsAndNothingElse) {
  const struct {
    const char16_t* text;
    double value;
  } cases[]{{u"3", 3},   {u"3x", 3},         {u"3级", 3},     {u"2.5级", 2.5},
            {u"7.", 7},  {u"x3", 0},         {u"", 0},        {u"高", 0},
            {u".5", 0},  {u"-4", 0},         {u" 4", 0},      {u"005", 5},
            {u"1e3", 1}, {u"３．５级", 3.5}, {u"1.2.3", 1.2}, {u"99999999999", 99999999999.0}};
  for (const auto& c : cases) {
    EXPECT_EQ(numericValue(QString::fromUtf16(c.text)), c.value)
        << QString::fromUtf16(c.text).toStdString();
  }
}

TEST(NumberText, IsTheShortestFormWithoutExponentOrSeparators) {
  EXPECT_EQ(numberText(25), u"25"_qs);
  EXPECT_EQ(numberText(12.5), u"12.5"_qs);
  EXPECT_EQ(numberText(33.33), u"33.33"_qs);
  EXPECT_EQ(numberText(1e6), u"1000000"_qs);
  EXPECT_EQ(numberText(-0.0), u"0"_qs);
}

TEST(RoundHalfEven, TakesAHalfToTheEvenNeighbour) {
  EXPECT_EQ(roundHalfEven(0.5), 0);
  EXPECT_EQ(roundHalfEven(1.5), 2);
  EXPECT_EQ(roundHalfEven(2.5), 2);
  EXPECT_EQ(roundHalfEven(-0.5), 0);
  EXPECT_EQ(roundHalfEven(-1.5), -2);
  EXPECT_EQ(roundHalfEven(2.51), 3);
  EXPECT_EQ(roundHalfEven(2.49), 2);
}

}  // namespace vellora
