#include "planning/open_items.h"

#include "store/statements.h"

#include <algorithm>

namespace vellora {

QList<OpenItem> readOpenItems(ScheduleStore& store) {
  QList<OpenItem> items;
  auto rows = store.open(statements::openItems());
  for (; !rows.atEnd(); rows.moveNext()) {
    items.append({rows.text(u"HDMC"), static_cast<PackedColour>(rows.number(u"FRGB"))});
  }
  return items;
}

std::optional<PackedColour> colourOf(const QList<OpenItem>& items, const QString& name) {
  const auto item = std::find_if(items.begin(), items.end(),
                                 [&](const OpenItem& each) { return each.name == name; });
  return item == items.end() ? std::nullopt : std::optional(item->colour);
}

}  // namespace vellora
