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

// A folder below src/ and what its files may include beside their own folder, blank-separated.
struct Room {
  std::string folder;
  std::string mayInclude;
  bool coreOnly = false;  // of Qt, nothing but Qt Core
  bool sqlite = false;    // may include the database engine
};

const std::string kSheets = "routine grid/sheet grid/files ";
const std::string kRules = kSheets + "store schedule ";
const std::string kBelowWindows = kRules + "grid/print grid/surface shell ";

// From the ground up: a room may include only rooms named before it.
const Room kHouse[]{
    {"routine", "", true},
    {"store", "routine", true, true},
    {"grid/sheet", "routine", true},
    {"grid/files", "routine grid/sheet", true},
    {"grid/print", kSheets},
    {"grid/surface", kSheets + "grid/print"},
    {"schedule", kSheets + "store", true},
    {"shell", kRules + "grid/print grid/surface"},
    {"board", kBelowWindows},
    {"editors", kBelowWindows},
    {"planning", kBelowWindows},
    {"stats", kBelowWindows},
    {"backup", kBelowWindows},
    {"exchange", kBelowWindows},
    {"app", kBelowWindows + "board editors planning stats backup exchange"},
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

// "grid/sheet/sheet.h" lies in the room "grid/sheet"; null for a file that lies in none.
const Room* roomOf(const std::string& file) {
  const auto* room = std::find_if(std::begin(kHouse), std::end(kHouse), [&](const Room& candidate) {
    return candidate.folder == file.substr(0, file.rfind('/'));
  });
  return room == std::end(kHouse) ? nullptr : room;
}

bool allows(const Room& from, const Room* to) {
  return to && (from.folder == to->folder ||
                (' ' + from.mayInclude + ' ').find(' ' + to->folder + ' ') != std::string::npos);
}

// <QString>, <qstring.h>, but not <QtGui/QColor>.
bool isBeyondCore(const std::string& header) {
  static const std::regex kQt("Q[A-Zt].*|q.*\\.h");
  return std::regex_match(header, kQt) && !header.starts_with("QtCore/") &&
         !std::filesystem::exists(std::filesystem::path(QT_CORE) / header);
}

class Inspection {
 public:
  explicit Inspection(const Tree& tree) : tree_(tree) {}

  // One sentence for each rule that is broken.
  Sentences run() {
    for (const auto& [file, source] : tree_) visit(file);
    return broken_;
  }

 private:
  // Depth first; a file met again while it is still on the path closes a circle.
  void visit(const std::string& file) {
    if (std::find(path_.begin(), path_.end(), file) != path_.end()) {
      broken_.push_back(file + " includes itself by " + path_.back());
    }
    if (!visited_.insert(file).second) return;
    const Room* room = roomOf(file);
    if (!room) return broken_.push_back(file + " lies in no folder of the house");
    path_.push_back(file);
    static const std::regex kInclude("(?:^|\n)[ \t]*#[ \t]*include[ \t]*([\"<])([^\">\n]+)[\">]");
    const std::string& source = tree_.at(file);
    if (std::count(source.begin(), source.end(), '\n') > kMostLines) {
      broken_.push_back(file + " is too long to be read as one thing");
    }
    for (std::sregex_iterator match(source.begin(), source.end(), kInclude), end; match != end;
         ++match) {
      check(file, *room, (*match)[2], (*match)[1] == "\"");
    }
    path_.pop_back();
  }

  void check(const std::string& file, const Room& room, const std::string& target, bool isOwn) {
    const bool isSqlite = target.starts_with("SQLiteCpp/") || target == "sqlite3.h";
    const bool isAllowed =
        isOwn ? tree_.contains(target) && allows(room, roomOf(target))
              : (!room.coreOnly || !isBeyondCore(target)) && (!isSqlite || room.sqlite);
    if (!isAllowed) broken_.push_back(file + " may not include " + target);
    if (isOwn && tree_.contains(target)) visit(target);
  }

  const Tree& tree_;
  std::vector<std::string> path_;
  std::set<std::string> visited_;
  Sentences broken_;
};

}  // namespace

TEST(House, HoldsForThePlanner) {
  const Tree tree = readSources();
  ASSERT_TRUE(tree.contains("store/schedule_store.h"));
  EXPECT_EQ(Inspection(tree).run(), Sentences{});
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
  EXPECT_EQ(Inspection(tree).run(), expected);
}

}  // namespace vellora
