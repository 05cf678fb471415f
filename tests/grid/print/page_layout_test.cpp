#include "grid/print/page_layout.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

using Pages = std::vector<std::vector<RowPiece>>;

}  // namespace

TEST(PageLayout, ColumnsWithoutAWidthShareWhatTheOthersLeave) {
  EXPECT_EQ(sharedWidths({100.0, std::nullopt, std::nullopt}, 300, 60),
            (std::vector<double>{100, 100, 100}));
  EXPECT_EQ(sharedWidths({290.0, std::nullopt}, 300, 60), (std::vector<double>{290, 60}));
  EXPECT_TRUE(sharedWidths({}, 300, 60).empty());
}

TEST(PageLayout, ShrinksOnlyWhatIsTooWideAndListsOnlyWhileTheyCanBeRead) {
  EXPECT_EQ(printScale(200, 300, true), 1);
  EXPECT_EQ(printScale(600, 300, true), 0.5);
  EXPECT_EQ(printScale(400, 300, false), 0.75);
  EXPECT_EQ(printScale(3'000, 300, false), 0.6);
}

TEST(PageLayout, PutsColumnsThatDoNotFitOnFurtherPages) {
  EXPECT_EQ(spanColumns({40, 60, 1, 99, 100}, 100),
            (std::vector<ColumnSpan>{{0, 2}, {2, 2}, {4, 1}}));
  EXPECT_EQ(spanColumns({500, 10}, 100), (std::vector<ColumnSpan>{{0, 1}, {1, 1}}));
}

TEST(PageLayout, FillsPagesWithRowsInTheirOrder) {
  EXPECT_EQ(layOutRows({{0, 1, 40}, {1, 1, 60}, {3, 1, 1}}, 100),
            (Pages{{{0, 0, 40}, {1, 0, 60}}, {{3, 0, 1}}}));
  EXPECT_EQ(layOutRows({}, 100), Pages(1));
}

TEST(PageLayout, ContinuesARowHigherThanAPageAndGoesOnBelowIt) {
  EXPECT_EQ(layOutRows({{0, 1, 10}, {1, 3, 30}, {2, 1, 70}}, 100),
            (Pages{{{0, 0, 10}}, {{1, 0, 100}}, {{1, 1, 100}}, {{1, 2, 30}, {2, 0, 70}}}));
}

TEST(PageLayout, BreaksATextOnlyBetweenLines) {
  EXPECT_EQ(flowLines({10, 10, 15, 10}, 25), (std::vector<LineRun>{{0, 2, 20}, {2, 2, 25}}));
  EXPECT_EQ(flowLines({90, 10}, 50), (std::vector<LineRun>{{0, 1, 90}, {1, 1, 10}}));
  EXPECT_EQ(flowLines({}, 50), (std::vector<LineRun>{{0, 0, 0}}));
}

}  // namespace vellora
