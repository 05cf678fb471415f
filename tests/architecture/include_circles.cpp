#include "architecture/include_circles.h"

#include <algorithm>
#include <set>

namespace vellora::test {
namespace {

// Walks the includes depth first; a file met again while it is still on the path closes a circle.
class Walk {
 public:
  explicit Walk(const SourceTree& tree) : tree_(tree) {}

  std::vector<std::string> run() {
    for (const auto& [file, includes] : tree_) visit(file);
    return circles_;
  }

 private:
  void visit(const std::string& file) {
    const auto onPath = std::find(path_.begin(), path_.end(), file);
    if (onPath != path_.end()) {
      circles_.push_back(circleFrom(onPath));
      return;
    }
    const auto entry = tree_.find(file);
    if (entry == tree_.end() || !visited_.insert(file).second) return;
    path_.push_back(file);
    for (const Include& include : entry->second) {
      if (include.isOwn) visit(include.target);
    }
    path_.pop_back();
  }

  std::string circleFrom(std::vector<std::string>::const_iterator first) const {
    std::string text;
    for (auto file = first; file != path_.end(); ++file) text += *file + " -> ";
    return text + *first;
  }

  const SourceTree& tree_;
  std::vector<std::string> path_;
  std::set<std::string> visited_;
  std::vector<std::string> circles_;
};

}  // namespace

std::vector<std::string> includeCircles(const SourceTree& tree) {
  return Walk(tree).run();
}

}  // namespace vellora::test
