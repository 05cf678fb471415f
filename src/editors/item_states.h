#pragma once

#include "schedule/items.h"

namespace vellora {

// What the item editor is doing: showing the selected item, taking a new one, or taking changes.
enum class ItemMode { Browsing, Adding, Editing };

enum class ItemEvent {
  FieldsChanged,  // by the user
  NewStarted,
  EditEnded,  // stored, cancelled, or left for another row or filter
};

// An empty catalogue has nothing that could be changed: only a new item leads out of browsing.
ItemMode nextMode(ItemMode mode, ItemEvent event, bool catalogueIsEmpty);

// Which of the editor's buttons can be pressed.
struct ItemButtons {
  bool storeAndCancel;
  bool add;
  bool remove;
  friend bool operator==(const ItemButtons&, const ItemButtons&) = default;
};

// `hasItem`: a row is selected and the catalogue is not empty.
ItemButtons buttonsIn(ItemMode mode, bool hasItem);

// What pressing the store button does with the fields.
enum class StoreStep {
  Incomplete,   // code or name missing: nothing, without a word
  CodeTaken,    // refused
  CodeUnknown,  // refused, and the change is dropped
  NoCategory,   // refused
  Add,
  Change,
};

// The code is the key: a change goes to the item that has it. `found`: an item of the filter has
// the code; `rowIsNew`: the selected row shows no stored item.
StoreStep storeStep(const Item& item, bool adding, bool rowIsNew, bool found);

}  // namespace vellora
