#include "routine/category.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(Category, IsFoundOnlyByItsExactLabel) {
  EXPECT_EQ(categoryIndex(u"1-工作"_qs), 0);
  EXPECT_EQ(categoryIndex(u"6-休息"_qs), 5);
  for (const auto& other : {u"工作"_qs, u"1-工作 "_qs, u"所有类别"_qs, QString()}) {
    EXPECT_EQ(categoryIndex(other), std::nullopt);
  }
}

TEST(Category, CarriesTheColourThatItemsStore) {
  const PackedColour stored[]{255, 16711680, 65280, 49152, 16711935, 0};
  for (std::size_t i = 0; i < kCategoryCount; ++i) EXPECT_EQ(categories()[i].colour, stored[i]);
}

}  // namespace vellora
