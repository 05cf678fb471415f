#include "architecture/house.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>

namespace vellora::test {
namespace {

using Sentences = std::vector<std::string>;

Include own(const std::string& target) {
  return {target, true};
}

Include library(const std::string& target) {
  return {target, false};
}

Sentences brokenIn(const SourceTree& tree) {
  return brokenRules(tree, plannerHouse(), QT_INCLUDES);
}

// The rules that a tree of two files breaks when the first includes the second.
Sentences arrowBreaks(const std::string& from, const std::string& to) {
  return brokenIn({{from, {own(to)}}, {to, {}}});
}

}  // namespace

TEST(House, HoldsForThePlanner) {
  const SourceTree tree = readSourceTree(SOURCES);
  ASSERT_TRUE(tree.contains("store/schedule_store.h"));
  EXPECT_EQ(brokenIn(tree), Sentences{});
}

TEST(House, LetsEachRoomIncludeOnlyRoomsBelowIt) {
  std::set<std::string_view> below;
  for (const Room& room : plannerHouse()) {
    for (const auto& folder : room.mayInclude) {
      EXPECT_TRUE(below.contains(folder)) << room.folder << " may include " << folder;
    }
    below.insert(room.folder);
  }
}

TEST(House, AllowsIncludesThatFollowTheArrows) {
  EXPECT_EQ(arrowBreaks("app/main.cpp", "board/week_board.h"), Sentences{});
  EXPECT_EQ(arrowBreaks("board/week_board.cpp", "store/schedule_store.h"), Sentences{});
  EXPECT_EQ(arrowBreaks("grid/surface/view.h", "grid/sheet/sheet.h"), Sentences{});
  EXPECT_EQ(arrowBreaks("store/a.cpp", "store/a.h"), Sentences{});
}

TEST(House, RefusesArrowsUpwardsAndBetweenNeighbours) {
  const std::pair<std::string, std::string> arrows[]{
      {"routine/clock.h", "store/recordset.h"},      {"shell/skin.h", "board/week_board.h"},
      {"grid/sheet/sheet.h", "grid/surface/view.h"}, {"grid/files/file.h", "grid/surface/view.h"},
      {"grid/surface/view.h", "store/recordset.h"},  {"store/schema.h", "grid/sheet/sheet.h"},
      {"board/week_board.h", "schedule/day_plan.h"}, {"schedule/time_use.h", "schedule/backup.h"},
      {"editors/memo.h", "app/attach_windows.h"},
  };
  for (const auto& [from, to] : arrows) {
    std::string sentence = from;
    sentence.append(" includes ").append(to).append(" against the arrows");
    EXPECT_EQ(arrowBreaks(from, to), Sentences{sentence});
  }
}

TEST(House, RefusesFilesOutsideEveryRoomAndIncludesOfNothing) {
  EXPECT_EQ(brokenIn({{"grid/loose.h", {}}}),
            Sentences{"grid/loose.h lies in no folder of the design"});
  EXPECT_EQ(brokenIn({{"store/a.cpp", {own("a.h")}}, {"store/a.h", {}}}),
            Sentences{"store/a.cpp includes a.h, which is not there"});
}

TEST(House, KeepsInterfaceAndEngineOutOfTheRoomsThatNeedNone) {
  for (const char* file : {"routine/a.h", "store/a.h", "grid/sheet/a.h"}) {
    for (const char* header : {"QColor", "QWidget", "QtGui/QColor", "QtWidgets", "qcolor.h"}) {
      EXPECT_EQ(brokenIn({{file, {library(header)}}}).size(), 1U) << file << ' ' << header;
    }
    EXPECT_EQ(brokenIn({{file,
                         {library("QString"), library("QtCore/QDate"), library("QtMath"),
                          library("qdatetime.h"), library("array")}}}),
              Sentences{});
  }
  EXPECT_EQ(brokenIn({{"board/a.h", {library("QWidget")}}}), Sentences{});
  EXPECT_EQ(brokenIn({{"store/a.h", {library("SQLiteCpp/Database.h"), library("sqlite3.h")}}}),
            Sentences{});
  EXPECT_EQ(brokenIn({{"board/a.h", {library("SQLiteCpp/Database.h")}}}).size(), 1U);
  EXPECT_EQ(brokenIn({{"shell/a.h", {library("sqlite3.h")}}}).size(), 1U);
}

TEST(House, RefusesCirclesOfFilesOfAnyLength) {
  EXPECT_EQ(brokenIn({{"store/a.h", {own("store/a.h")}}}),
            Sentences{"store/a.h -> store/a.h is a circle"});
  EXPECT_EQ(brokenIn({{"store/a.h", {own("store/b.h")}},
                      {"store/b.h", {own("store/c.h"), own("store/d.h")}},
                      {"store/c.h", {own("store/a.h")}},
                      {"store/d.h", {}}}),
            Sentences{"store/a.h -> store/b.h -> store/c.h -> store/a.h is a circle"});
}

TEST(House, AllowsTwoWaysToTheSameHeader) {
  EXPECT_EQ(brokenIn({{"store/a.h", {own("store/b.h"), own("store/c.h")}},
                      {"store/b.h", {own("store/d.h")}},
                      {"store/c.h", {own("store/d.h")}},
                      {"store/d.h", {}}}),
            Sentences{});
}

TEST(SourceTree, FindsIncludesHoweverTheyAreSpacedButNotInComments) {
  const auto found = includesOf(
      "#include \"a.h\"\n  #  include <QString>\n// #include \"b.h\"\nint include;\n"
      "#include\"c.h\"  // why\n");
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0].target, "a.h");
  EXPECT_TRUE(found[0].isOwn);
  EXPECT_EQ(found[1].target, "QString");
  EXPECT_FALSE(found[1].isOwn);
  EXPECT_EQ(found[2].target, "c.h");
}

TEST(SourceTree, ReadsSourcesInEveryFolderAndNothingElse) {
  const auto root = std::filesystem::path(testing::TempDir()) / "architecture_tree";
  std::filesystem::create_directories(root / "store/inner");
  std::ofstream(root / "store/inner/a.h") << "#include \"routine/b.h\"\n";
  std::ofstream(root / "store/notes.txt") << "#include \"app/c.h\"\n";
  const SourceTree tree = readSourceTree(root);
  std::filesystem::remove_all(root);
  ASSERT_EQ(tree.size(), 1U);
  EXPECT_EQ(tree.at("store/inner/a.h").at(0).target, "routine/b.h");
}

}  // namespace vellora::test
