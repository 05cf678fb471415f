#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vellora::test {

struct Include {
  std::string target;  // as written between the quotes or angle brackets
  bool isOwn;          // "quoted": a file of the tree; <angled>: a library's
};

// What each file includes. Files are named by their path below the root, with '/'.
using SourceTree = std::map<std::string, std::vector<Include>>;

std::vector<Include> includesOf(std::string_view source);

// Every .h and .cpp file below the folder. Throws std::runtime_error when one cannot be read.
SourceTree readSourceTree(const std::filesystem::path& root);

}  // namespace vellora::test
