#include "editors/item_catalogue.h"

#include "routine/category.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <utility>

namespace vellora {

Recordset ItemCatalogue::openItems() const {
  return store_.open(category_ == allCategoriesLabel() ? statements::allItems()
                                                       : statements::itemsOfCategory(category_));
}

void ItemCatalogue::filter(const QString& category, Sheet& sheet) {
  const QString before = std::exchange(category_, category);
  try {
    Recordset items = openItems();
    items.moveLast();
    FillItemGrid(items, sheet);
    items_ = std::move(items);
  } catch (const StoreError&) {
    category_ = before;
    throw;
  }
}

std::optional<Item> ItemCatalogue::find(const QString& code) {
  if (isEmpty()) return std::nullopt;
  items_->moveFirst();
  if (!items_->findFirst(statements::itemNumberIs(code))) return std::nullopt;
  return readItem(*items_);
}

std::optional<Item> ItemCatalogue::find(qint64 id) {
  if (isEmpty()) return std::nullopt;
  for (items_->moveFirst(); !items_->atEnd(); items_->moveNext()) {
    if (items_->rowId() == id) return readItem(*items_);
  }
  return std::nullopt;
}

bool ItemCatalogue::add(const Item& item) {
  ScheduleStore::Transaction one(store_);
  Recordset items = openItems();
  if (items.findFirst(statements::itemNumberIs(item.code))) return false;
  items.addNew();
  setColumns(items, item);
  items.update();
  one.commit();
  items_ = std::move(items);
  return true;
}

void ItemCatalogue::change(const Item& item, bool overwrite) {
  if (overwrite) {
    const qint64 id = currentId();
    items_ = openItems();
    if (!find(id)) throw StoreError(StoreFault::NoCurrentRow, u"这个活动项目已被删除。"_qs);
  }
  items_->edit();
  setColumns(*items_, item);
  items_->set(u"SFWC", item.completed ? 1 : 0);
  items_->update();
}

void ItemCatalogue::setColumns(Recordset& items, const Item& item) {
  items.set(u"HDBH", item.code);
  items.set(u"hdmc", item.name);
  items.set(u"FRGB", qint64{itemColour(item.category)});
  items.set(u"hdlb", item.category);
}

}  // namespace vellora
