#include "editors/item_catalogue.h"

#include "routine/category.h"
#include "store/statements.h"

namespace vellora {

void ItemCatalogue::filter(const QString& category, Sheet& sheet) {
  Recordset items =
      store_.open(category == allCategoriesLabel() ? statements::allItems()
                                                   : statements::itemsOfCategory(category));
  items.moveLast();
  FillItemGrid(items, sheet);
  items_ = std::move(items);
}

std::optional<Item> ItemCatalogue::find(const QString& code) {
  if (isEmpty()) return std::nullopt;
  items_->moveFirst();
  if (!items_->findFirst(statements::itemNumberIs(code))) return std::nullopt;
  return readItem(*items_);
}

void ItemCatalogue::add(const Item& item) {
  items_->addNew();
  setColumns(item);
  items_->update();
}

void ItemCatalogue::change(const Item& item) {
  items_->edit();
  setColumns(item);
  items_->set(u"SFWC", item.completed ? 1 : 0);
  items_->update();
}

void ItemCatalogue::setColumns(const Item& item) {
  items_->set(u"HDBH", item.code);
  items_->set(u"hdmc", item.name);
  items_->set(u"FRGB", qint64{itemColour(item.category)});
  items_->set(u"hdlb", item.category);
}

}  // namespace vellora
