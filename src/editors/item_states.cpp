#include "editors/item_states.h"

#include "routine/category.h"

namespace vellora {

ItemMode nextMode(ItemMode mode, ItemEvent event, bool catalogueIsEmpty) {
  switch (event) {
    case ItemEvent::NewStarted:
      return ItemMode::Adding;
    case ItemEvent::EditEnded:
      return ItemMode::Browsing;
    case ItemEvent::FieldsChanged:
      break;
  }
  if (mode == ItemMode::Adding) return mode;
  return catalogueIsEmpty ? ItemMode::Browsing : ItemMode::Editing;
}

ItemButtons buttonsIn(ItemMode mode, bool hasItem) {
  const bool browsing = mode == ItemMode::Browsing;
  return {!browsing, browsing, browsing && hasItem};
}

StoreStep storeStep(const Item& item, bool adding, bool rowIsNew, bool found) {
  const bool adds = adding || rowIsNew;
  if (item.code.isEmpty() || item.name.isEmpty()) return StoreStep::Incomplete;
  if (adds && found) return StoreStep::CodeTaken;
  if (!adding && !found) return StoreStep::CodeUnknown;
  if (!categoryIndex(item.category)) return StoreStep::NoCategory;
  return adds ? StoreStep::Add : StoreStep::Change;
}

}  // namespace vellora
