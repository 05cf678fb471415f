// Walks the includes of the planner: folders include each other in one direction, files in no
// circle, what needs no windows knows none, and no file is too long.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <regex>
#include <set>

namespace vellora {
namespace {

// What the files of a folder may include beside their own folder, blank-separated.
struct Room {
  std::string mayInclude;
  bool coreOnly = false;  // of Qt, nothing but Qt Core
  bool sqlite = false;    // may include the database engine
};

const std::string kSheets = "routine grid/sheet grid/files ";
const std::string kRules = kSheets + "store schedule ";
const std::string kBelowWindows = kRules + "grid/print grid/surface shell ";

// By their paths below src/.
const std::map<std::string, Room> kHouse{
    {"routine", {"", true}},
    {"store", {"routine", true, true}},
    {"grid/sheet", {"routine", true}},
    {"grid/files", {"routine grid/sheet", true}},
    {"grid/print", {kSheets}},
    {"grid/surface", {kSheets + "grid/print"}},
    {"schedule", {kSheets + "store", true}},
    {"shell", {kRules + "grid/print grid/surface"}},
    {"board", {kBelowWindows}},
    {"editors", {kBelowWindows}},
    {"planning", {kBelowWindows}},
    {"stats", {kBelowWindows}},
    {"backup", {kBelowWindows}},
    {"exchange", {kBelowWindows}},
    {"app", {kBelowWindows + "board editors planning stats backup exchange"}},
};

constexpr int kMostLines = 400;

// Sources by their path below src/.
using Tree = std::map<std::string, std::string>;
using Sentences = std::vector<std::string>;

Tree readSources() {
  Tree tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCES)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    std::ifstream file(entry.path());
    tree[std::filesystem::relative(entry.path(), SOURCES).generic_string()] = {
        std::istreambuf_iterator<char>(file), {}};
  }
  return tree;
}

// "grid/sheet/sheet.h" lies in the room "grid/sheet".
std::string roomOf(const std::string& file) {
  return file.substr(0, file.rfind('/'));
}

bool allows(const std::string& from, const std::string& to) {
  const std::string allowed = ' ' + from + ' ' + kHouse.at(from).mayInclude + ' ';
  return allowed.find(' ' + to + ' ') != std::string::npos;
}

// <QString>, <qstring.h>, but not <QtGui/QColor>.
bool isBeyondCore(const std::string& header) {
  static const std::regex kQt("Q[A-Zt].*|q.*\\.h");
  return std::regex_match(header, kQt) && !header.starts_with("QtCore/") &&
         !std::filesystem::exists(std::filesystem::path(QT_CORE) / header);
}

struct Inspection {
  const Tree& tree;
  std::vector<std::string> path;
  std::set<std::string> visited;
  Sentences broken;  // one for each rule that is broken

  // Depth first; a file met again while it is still on the path closes a circle.
  void visit(const std::string& file) {
    if (std::find(path.begin(), path.end(), file) != path.end()) {
      broken.push_back(file + " includes itself by " + path.back());
    }
    if (!visited.insert(file).second) return;
    if (!kHouse.contains(roomOf(file))) {
      return broken.push_back(file + " lies in no folder of the house");
    }
    path.push_back(file);
    static const std::regex kInclude("(?:^|\n)[ \t]*#[ \t]*include[ \t]*([\"<])([^\">\n]+)[\">]");
    const std::string& source = tree.at(file);
    if (std::count(source.begin(), source.end(), '\n') > kMostLines) {
      broken.push_back(file + " is too long to be read as one thing");
    }
    for (std::sregex_iterator match(source.begin(), source.end(), kInclude), end; match != end;
         ++match) {
      check(file, (*match)[2], (*match)[1] == "\"");
    }
    path.pop_back();
  }

  void check(const std::string& file, const std::string& target, bool isOwn) {
    const Room& room = kHouse.at(roomOf(file));
    const bool isSqlite = target.starts_with("SQLiteCpp/") || target == "sqlite3.h";
    const bool isAllowed =
        isOwn ? tree.contains(target) && allows(roomOf(file), roomOf(target))
              : (!room.coreOnly || !isBeyondCore(target)) && (!isSqlite || room.sqlite);
    if (!isAllowed) broken.push_back(file + " may not include " + target);
    if (isOwn && tree.contains(target)) visit(target);
  }
};

Sentences inspect(const Tree& tree) {
  Inspection inspection{tree, {}, {}, {}};
  for (const auto& [file, source] : tree) inspection.visit(file);
  return inspection.broken;
}

}  // namespace

TEST(House, HoldsForThePlanner) {
  const Tree tree = readSources();
  ASSERT_TRUE(tree.contains("store/schedule_store.h"));
  EXPECT_EQ(inspect(tree), Sentences{});
}

TEST(House, RefusesArrowsUpwardsCirclesAndForeignHeaders) {
  const Tree tree{
      {"board/a.h", "#include \"planning/a.h\"\n#include <QWidget>\n#include \"store/a.h\"\n"},
      {"grid/loose.h", "// #include \"app/a.h\"\n"},
      {"planning/a.h", "#include\"lost.h\"  // why\n#include <SQLiteCpp/Database.h>\n"},
      {"routine/a.h", "#include <QString>\n#include <QtGui/QColor>\n # include <qwidget.h>\n"},
      {"stats/a.h", std::string(kMostLines + 1, '\n')},
      {"store/a.h", "#include <sqlite3.h>\n#include \"store/b.h\"\n"},
      {"store/b.h", "#include \"routine/a.h\"\n#include \"store/a.h\"\n"},
  };
  const Sentences expected{"board/a.h may not include planning/a.h",
                           "planning/a.h may not include lost.h",
                           "planning/a.h may not include SQLiteCpp/Database.h",
                           "routine/a.h may not include QtGui/QColor",
                           "routine/a.h may not include qwidget.h",
                           "store/a.h includes itself by store/b.h",
                           "grid/loose.h lies in no folder of the house",
                           "stats/a.h is too long to be read as one thing"};
  EXPECT_EQ(inspect(tree), expected);
}

}  // namespace vellora
