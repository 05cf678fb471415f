#pragma once

#include "routine/colour.h"
#include "store/schedule_store.h"

#include <QList>
#include <QString>

#include <optional>

namespace vellora {

// An activity that is not completed, as it is offered for planning.
struct OpenItem {
  QString name;
  PackedColour colour;
};

// In ascending number order. Throws StoreError.
QList<OpenItem> readOpenItems(ScheduleStore& store);

// The colour of the first item of exactly that name.
std::optional<PackedColour> colourOf(const QList<OpenItem>& items, const QString& name);

}  // namespace vellora
