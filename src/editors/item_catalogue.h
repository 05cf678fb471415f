#pragma once

#include "editors/item_rules.h"
#include "store/schedule_store.h"

#include <optional>

namespace vellora {

// The items that the editor's filter selected, kept open while the editor is. All of them are read
// when the filter runs, so that finding one needs no database afterwards.
class ItemCatalogue {
 public:
  explicit ItemCatalogue(ScheduleStore& store) : store_(store) {}

  // Opens the items of a category, or all for the entry that stands for every category, and shows
  // them. Throws StoreError and leaves set and sheet as they were when they cannot be read.
  void filter(const QString& category, Sheet& sheet);
  void close() { items_.reset(); }

  bool isEmpty() { return !items_ || items_->isEmpty(); }
  // The first item with this code, if there is one.
  std::optional<Item> find(const QString& code);

  // These throw StoreError and then leave the catalogue as it was. The item has one of the six
  // categories. A new item is stored open whatever its mark says.
  void add(const Item& item);
  // Changes or removes the item that find() found last.
  void change(const Item& item);
  void remove() { items_->remove(); }

 private:
  void setColumns(const Item& item);

  ScheduleStore& store_;
  std::optional<Recordset> items_;
};

}  // namespace vellora
