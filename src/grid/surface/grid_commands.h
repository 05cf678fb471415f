#pragma once

#include <QKeySequence>
#include <QList>

#include <functional>
#include <vector>

namespace vellora {

// One entry of the grid's context menu, with the keys that do the same.
struct GridCommand {
  QString text;
  QList<QKeySequence> keys;
  std::function<bool()> isEnabled;
  std::function<void()> run;
  bool endsGroup = false;
};
using GridCommands = std::vector<GridCommand>;

}  // namespace vellora
