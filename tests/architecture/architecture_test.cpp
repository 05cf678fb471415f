#include "architecture/include_arrows.h"

#include <gtest/gtest.h>

namespace vellora::test {
namespace {

std::vector<std::string> broken(const Includes& includes) {
  return brokenArrows(plannersHouse(), includes);
}

}  // namespace

TEST(Architecture, FollowsTheArrowsOfTheHouse) {
  const Includes includes = readIncludes(SOURCE_DIR);
  EXPECT_GT(includes.size(), 50U);
  for (const auto& sentence : broken(includes)) ADD_FAILURE() << sentence;
}

TEST(ArchitectureCheck, AllowsDownwardIncludes) {
  EXPECT_TRUE(broken({{"board/a.cpp", {"board/a.h", "shell/b.h", "store/c.h", "QWidget"}},
                      {"board/a.h", {"routine/d.h"}},
                      {"app/main.cpp", {"board/a.h", "backup/e.h"}}})
                  .empty());
}

TEST(ArchitectureCheck, FindsEachKindOfWrongInclude) {
  const Includes wrong[]{
      {{"routine/a.h", {"store/b.h"}}},         {{"store/a.h", {"grid/sheet/b.h"}}},
      {{"grid/sheet/a.h", {"store/b.h"}}},      {{"grid/files/a.h", {"grid/surface/b.h"}}},
      {{"shell/a.h", {"board/b.h"}}},           {{"board/a.h", {"planning/b.h"}}},
      {{"planning/a.h", {"editors/b.h"}}},      {{"backup/a.cpp", {"app/b.h"}}},
      {{"store/a.cpp", {"QWidget"}}},           {{"routine/a.cpp", {"QColor"}}},
      {{"grid/sheet/a.cpp", {"QApplication"}}}, {{"misc/a.h", {}}},
  };
  for (const auto& includes : wrong) {
    EXPECT_EQ(broken(includes).size(), 1U) << includes.begin()->first;
  }
}

TEST(ArchitectureCheck, FindsCirclesBetweenFiles) {
  EXPECT_EQ(broken({{"store/a.h", {"store/b.h"}},
                    {"store/b.h", {"store/c.h"}},
                    {"store/c.h", {"store/a.h"}}})
                .size(),
            1U);
}

}  // namespace vellora::test
