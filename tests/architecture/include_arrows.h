#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace vellora::test {

// The house that the sources live in: for every folder the folders that it may include, itself
// always among them.
using House = std::map<std::string, std::set<std::string>>;

// What a file of a folder includes between quotes, and which Qt and library headers, by path below
// the source folder.
using Includes = std::map<std::string, std::vector<std::string>>;

House plannersHouse();

// Reads every .h and .cpp below a folder. Throws std::runtime_error when nothing is there.
Includes readIncludes(const std::string& folder);

// One sentence for each include that no arrow allows, each header that a folder without windows
// may not use, and each circle of files.
std::vector<std::string> brokenArrows(const House& house, const Includes& includes);

}  // namespace vellora::test
