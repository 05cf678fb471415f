#pragma once

#include "architecture/source_tree.h"

#include <string>
#include <vector>

namespace vellora::test {

// Each circle of files that include each other, once, as "a.h -> b.h -> a.h".
std::vector<std::string> includeCircles(const SourceTree& tree);

}  // namespace vellora::test
