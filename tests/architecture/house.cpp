#include "architecture/house.h"

#include "architecture/include_circles.h"

#include <algorithm>

namespace vellora::test {
namespace {

using Sentences = std::vector<std::string>;

// "grid/sheet/sheet.h" lies in the room "grid/sheet", not in a room "grid".
const Room* roomOf(const std::string& file, const std::vector<Room>& house) {
  const std::string_view folder = std::string_view(file).substr(0, file.rfind('/'));
  const auto room = std::find_if(house.begin(), house.end(),
                                 [&](const Room& candidate) { return candidate.folder == folder; });
  return room == house.end() ? nullptr : &*room;
}

bool allows(const Room& from, const Room& to) {
  return from.folder == to.folder || std::find(from.mayInclude.begin(), from.mayInclude.end(),
                                               to.folder) != from.mayInclude.end();
}

bool isUpper(char letter) {
  return letter >= 'A' && letter <= 'Z';
}

// <QString>, <QtMath>, <QtCore/QString>, <qstring.h>.
bool isQtHeader(const std::string& target) {
  const bool isLower = target.starts_with('q') && target.ends_with(".h");
  return isLower ||
         (target.size() > 1 && target[0] == 'Q' && (isUpper(target[1]) || target[1] == 't'));
}

bool isBeyondCore(const std::string& target, const std::filesystem::path& qtIncludes) {
  if (!isQtHeader(target)) return false;
  if (target.find('/') != std::string::npos) return !target.starts_with("QtCore/");
  return !std::filesystem::exists(qtIncludes / "QtCore" / target);
}

bool isSqlite(const std::string& target) {
  return target.starts_with("SQLiteCpp/") || target == "sqlite3.h";
}

class Inspection {
 public:
  Inspection(const SourceTree& tree, const std::vector<Room>& house,
             const std::filesystem::path& qtIncludes)
      : tree_(tree), house_(house), qtIncludes_(qtIncludes) {}

  Sentences run() {
    for (const auto& [file, includes] : tree_) {
      const Room* room = roomOf(file, house_);
      if (room == nullptr) {
        broken_.push_back(file + " lies in no folder of the design");
        continue;
      }
      for (const Include& include : includes) check(file, *room, include);
    }
    return broken_;
  }

 private:
  void check(const std::string& file, const Room& room, const Include& include) {
    const std::string arrow = file + " includes " + include.target;
    if (include.isOwn) {
      checkOwn(arrow, room, include.target);
    } else if (room.coreOnly && isBeyondCore(include.target, qtIncludes_)) {
      broken_.push_back(arrow + ", which is not Qt Core");
    } else if (!room.sqlite && isSqlite(include.target)) {
      broken_.push_back(arrow + ", which only the store may");
    }
  }

  void checkOwn(const std::string& arrow, const Room& room, const std::string& target) {
    const Room* other = roomOf(target, house_);
    if (!tree_.contains(target)) {
      broken_.push_back(arrow + ", which is not there");
    } else if (other == nullptr || !allows(room, *other)) {
      broken_.push_back(arrow + " against the arrows");
    }
  }

  const SourceTree& tree_;
  const std::vector<Room>& house_;
  const std::filesystem::path& qtIncludes_;
  Sentences broken_;
};

}  // namespace

const std::vector<Room>& plannerHouse() {
  static const std::vector<std::string_view> kBelowShell{
      "routine", "store", "grid/sheet", "grid/files", "grid/print", "grid/surface"};
  static const std::vector<std::string_view> kBelowWindows{
      "routine", "store", "grid/sheet", "grid/files", "grid/print", "grid/surface", "shell"};
  static const std::vector<std::string_view> kEverything{
      "routine", "store", "grid/sheet", "grid/files", "grid/print", "grid/surface",
      "shell",   "board", "editors",    "planning",   "stats",      "backup"};
  static const std::vector<Room> kHouse{
      {.folder = "routine", .mayInclude = {}, .coreOnly = true},
      {.folder = "store", .mayInclude = {"routine"}, .coreOnly = true, .sqlite = true},
      {.folder = "grid/sheet", .mayInclude = {"routine"}, .coreOnly = true},
      {.folder = "grid/files", .mayInclude = {"routine", "grid/sheet"}, .coreOnly = true},
      {.folder = "grid/print", .mayInclude = {"routine", "grid/sheet", "grid/files"}},
      {.folder = "grid/surface",
       .mayInclude = {"routine", "grid/sheet", "grid/files", "grid/print"}},
      {.folder = "shell", .mayInclude = kBelowShell},
      {.folder = "board", .mayInclude = kBelowWindows},
      {.folder = "editors", .mayInclude = kBelowWindows},
      {.folder = "planning", .mayInclude = kBelowWindows},
      {.folder = "stats", .mayInclude = kBelowWindows},
      {.folder = "backup", .mayInclude = kBelowWindows},
      {.folder = "app", .mayInclude = kEverything},
  };
  return kHouse;
}

std::vector<std::string> brokenRules(const SourceTree& tree, const std::vector<Room>& house,
                                     const std::filesystem::path& qtIncludes) {
  Sentences broken = Inspection(tree, house, qtIncludes).run();
  for (const std::string& circle : includeCircles(tree)) {
    broken.push_back(circle + " is a circle");
  }
  return broken;
}

}  // namespace vellora::test
