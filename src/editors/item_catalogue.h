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
  // The first item with this code, or the one of this id; it becomes the current one.
  std::optional<Item> find(const QString& code);
  std::optional<Item> find(qint64 id);
  qint64 currentId() { return items_->rowId(); }

  // These throw StoreError and then leave the catalogue as it was. The item has one of the six
  // categories. A new item is stored open whatever its mark says, and becomes the current one;
  // false when another program has stored one of its code among the items meanwhile.
  bool add(const Item& item);
  // Change or remove the current item. StoreFault::RowChanged when another program has changed it;
  // overwriting reads it again first.
  void change(const Item& item, bool overwrite = false);
  void remove() { items_->remove(); }

 private:
  Recordset openItems() const;
  static void setColumns(Recordset& items, const Item& item);

  ScheduleStore& store_;
  QString category_;
  std::optional<Recordset> items_;
};

}  // namespace vellora
