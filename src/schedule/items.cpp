#include "schedule/items.h"

#include "routine/category.h"
#include "routine/number_text.h"
#include "schedule/list_columns.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <algorithm>
#include <set>
#include <utility>

namespace vellora {
namespace {

constexpr qsizetype kCountedCharacters = 3;
constexpr int kItemRowHeight = 22;
constexpr int kNewRowHeight = 24;

constexpr ListColumn kItemColumns[kItemCols]{
    {u"编号", 60}, {u"名称", 260}, {u"类别", 60}, {u"状态", 60}};

PackedColour storedColour(Recordset& items) {
  return static_cast<PackedColour>(items.number(u"FRGB")) & 0xFFFFFFU;
}

void placeRow(Sheet& sheet, int row) {
  for (int col = 0; col < kItemCols; ++col) sheet.SetCellAlign(col, row, kAlignCentred);
}

void takeInput(Sheet& sheet, int row) {
  sheet.SetCellInput(kItemCodeCol, row, 1);
  sheet.SetCellInput(kItemNameCol, row, 1);
}

void fillRow(Recordset& items, Sheet& sheet, int row) {
  sheet.SetCellText(kItemCodeCol, row, items.text(u"HDBH"));
  sheet.SetCellTag(kItemCodeCol, row, QString::number(items.rowId()));
  sheet.SetCellText(kItemNameCol, row, items.text(u"hdmc"));
  sheet.SetCellText(kItemCategoryCol, row, items.text(u"hdlb"));
  sheet.SetCellColors(kItemNameCol, row, storedColour(items), kWhite);
  sheet.SetCellValue(kItemStateCol, row, items.value(u"SFWC"));
  placeRow(sheet, row);
  takeInput(sheet, row);
}

}  // namespace

QString suggestedCode(const QString& code) {
  const QString counted = code.right(kCountedCharacters);
  const auto next = static_cast<qint64>(numericValue(counted)) + 1;
  return code.chopped(counted.size()) + QString::number(next).rightJustified(counted.size(), u'0');
}

QString storedItemText(const QString& typed) {
  QString text = typed;
  for (const QChar lineBreak : {QChar(u'\r'), QChar(u'\n'), QChar(QChar::LineSeparator),
                                QChar(QChar::ParagraphSeparator)}) {
    text.replace(lineBreak, u' ');
  }
  return text.trimmed();
}

PackedColour itemColour(const QString& category) {
  return categories().at(static_cast<std::size_t>(categoryIndex(category).value())).colour;
}

Item readItem(Recordset& items) {
  return {items.text(u"HDBH").trimmed(), items.text(u"hdmc").trimmed(),
          items.text(u"hdlb").trimmed(), items.number(u"SFWC") != 0};
}

void setUpItemSheet(Sheet& sheet) {
  setUpList(sheet, kItemColumns, kItemRowHeight);
  sheet.SetRows(0);
}

void FillItemGrid(Recordset& items, Sheet& sheet) {
  sheet.SetRows(0);
  sheet.SetRows(static_cast<int>(items.count()));
  items.moveFirst();
  for (int row = 0; !items.atEnd(); ++row, items.moveNext()) fillRow(items, sheet, row);
  items.moveFirst();
}

void prepareNewItemRow(Sheet& sheet, int row) {
  sheet.SetRowHeight(row, kNewRowHeight);
  placeRow(sheet, row);
  takeInput(sheet, row);
}

qint64 itemIdAt(const Sheet& sheet, int row) {
  return sheet.CellTag(kItemCodeCol, row).toLongLong();
}

void showItem(Sheet& sheet, int row, const Item& item, qint64 id) {
  sheet.SetCellText(kItemCodeCol, row, item.code);
  sheet.SetCellTag(kItemCodeCol, row, QString::number(id));
  sheet.SetCellText(kItemNameCol, row, item.name);
  sheet.SetCellText(kItemCategoryCol, row, item.category);
  sheet.SetCellColors(kItemNameCol, row, itemColour(item.category), kWhite);
  sheet.SetCellText(kItemStateCol, row, item.completed ? u"1"_qs : u"0"_qs);
  placeRow(sheet, row);
}

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

QString ItemCatalogue::freeCode(const QString& code) const {
  constexpr int kMostTried = 1'000;
  QString free = code;
  for (int i = 0; i < kMostTried && !free.isEmpty(); ++i) {
    if (!store_.readOnce(statements::itemNumbered(free)).next()) return free;
    free = suggestedCode(free);
  }
  return code;
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

void ItemCatalogue::readAgain() {
  const qint64 id = currentId();
  items_ = openItems();
  if (!find(id)) throw StoreError(StoreFault::NoCurrentRow, u"这个活动项目已被删除。"_qs);
}

void ItemCatalogue::change(const Item& item, bool overwrite) {
  if (overwrite) readAgain();
  items_->edit();
  setColumns(*items_, item);
  items_->set(u"SFWC", item.completed ? 1 : 0);
  items_->update();
}

qsizetype ItemCatalogue::plansLeftBy(const Item& item) const {
  const QString before = currentName();
  return before == item.name ? 0 : store_.open(statements::plansOfActivity(before)).count();
}

void ItemCatalogue::changeWithPlans(const Item& item, bool overwrite) {
  const qint64 id = currentId();
  std::set<QString> names{currentName()};
  bool isChanged = false;
  try {
    ScheduleStore::Transaction both(store_);
    if (overwrite) readAgain();
    names.insert(currentName());  // another program may have renamed it, and its plans
    change(item);
    isChanged = true;
    names.erase(item.name);
    for (const QString& name : names) store_.execute(statements::renamePlans(name, item.name));
    both.commit();
  } catch (const StoreError&) {
    if (isChanged) {  // in the set, and not in the schedule
      items_ = openItems();
      find(id);
    }
    throw;
  }
}

void ItemCatalogue::setColumns(Recordset& items, const Item& item) {
  items.set(u"HDBH", item.code);
  items.set(u"hdmc", item.name);
  items.set(u"FRGB", qint64{itemColour(item.category)});
  items.set(u"hdlb", item.category);
}

QList<OpenItem> readOpenItems(ScheduleStore& store) {
  QList<OpenItem> items;
  auto rows = store.open(statements::openItems());
  for (; !rows.atEnd(); rows.moveNext()) {
    items.append(
        {rows.text(u"HDMC"), static_cast<PackedColour>(rows.number(u"FRGB")), rows.text(u"HDLB")});
  }
  return items;
}

std::optional<PackedColour> colourOf(const QList<OpenItem>& items, const QString& name) {
  const auto item = std::find_if(items.begin(), items.end(),
                                 [&](const OpenItem& each) { return each.name == name; });
  return item == items.end() ? std::nullopt : std::optional(item->colour);
}

}  // namespace vellora
