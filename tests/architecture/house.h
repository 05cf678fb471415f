#pragma once

#include "architecture/source_tree.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vellora::test {

// A folder below src/ and what its files may include besides their own folder.
struct Room {
  std::string_view folder;
  std::vector<std::string_view> mayInclude;
  bool coreOnly = false;  // of Qt, nothing but Qt Core
  bool sqlite = false;    // may include the database engine
};

// The planner's folders from the ground up: a room may include only rooms named before it.
const std::vector<Room>& plannerHouse();

// One sentence for each include that the house does not allow, each file outside every room, each
// include of a file that is not there, and each circle of files. `qtIncludes` is the folder that
// holds Qt's headers by module, which tells Qt Core's headers from those of other modules.
std::vector<std::string> brokenRules(const SourceTree& tree, const std::vector<Room>& house,
                                     const std::filesystem::path& qtIncludes);

}  // namespace vellora::test
