#include "architecture/source_tree.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

namespace vellora::test {
namespace {

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

bool isSource(const std::filesystem::directory_entry& entry) {
  const auto extension = entry.path().extension();
  return entry.is_regular_file() && (extension == ".h" || extension == ".cpp");
}

}  // namespace

std::vector<Include> includesOf(std::string_view source) {
  static const std::regex kInclude(R"re((?:^|\n)[ \t]*#[ \t]*include[ \t]*(["<])([^">\n]+)[">])re");
  std::vector<Include> includes;
  using Matches = std::regex_iterator<std::string_view::const_iterator>;
  for (Matches match(source.begin(), source.end(), kInclude); match != Matches(); ++match) {
    includes.push_back({(*match)[2].str(), (*match)[1].str() == "\""});
  }
  return includes;
}

SourceTree readSourceTree(const std::filesystem::path& root) {
  SourceTree tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    if (!isSource(entry)) continue;
    const auto name = std::filesystem::relative(entry.path(), root).generic_string();
    tree[name] = includesOf(contentOf(entry.path()));
  }
  return tree;
}

}  // namespace vellora::test
