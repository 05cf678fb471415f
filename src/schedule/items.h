#pragma once

#include "grid/sheet/sheet.h"
#include "routine/colour.h"
#include "store/recordset.h"
#include "store/schedule_store.h"

#include <QList>
#include <QString>

#include <optional>

namespace vellora {

// Characters that the fields of the item editor take.
inline constexpr int kItemCodeLength = 6;
inline constexpr int kItemNameLength = 50;

enum ItemColumn : int { kItemCodeCol, kItemNameCol, kItemCategoryCol, kItemStateCol, kItemCols };

// An activity item as the editor shows and stores it.
struct Item {
  QString code;
  QString name;
  QString category;  // one of the six labels; a schedule written elsewhere may hold another text
  bool completed = false;
  friend bool operator==(const Item&, const Item&) = default;
};

// The code after a given one: its last three characters, or all of a shorter code, counted up by
// one and filled with zeros to their old length. Characters that do not start with a digit count as
// 0, so A05 gives 001.
QString suggestedCode(const QString& code);

// A typed code or name as it is stored: in one line, without blanks around, so that looking it up
// finds it again.
QString storedItemText(const QString& typed);

// The colour stored with an item and shown by its name: that of its category, which must be one of
// the six.
PackedColour itemColour(const QString& category);

// The item of the set's current row, without blanks around its texts.
Item readItem(Recordset& items);

// Columns, headings and sizes of the catalogue, without rows.
void setUpItemSheet(Sheet& sheet);

// One row per item of the set, names in their items' colours; the tag of its code tells an item
// from others with that code. Leaves the set on its first row.
void FillItemGrid(Recordset& items, Sheet& sheet);

// Makes an inserted row of the catalogue ready for an item that is not stored yet.
void prepareNewItemRow(Sheet& sheet, int row);

// Shows a stored item, which has one of the six categories, in its row.
void showItem(Sheet& sheet, int row, const Item& item, qint64 id);

// Which item a row shows; 0 for one that is not stored.
qint64 itemIdAt(const Sheet& sheet, int row);

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
  // The code, or the first one after it, that no item of any category has.
  QString freeCode(const QString& code) const;
  qint64 currentId() { return items_->rowId(); }

  // These throw StoreError and then leave the catalogue as it was. The item has one of the six
  // categories. A new item is stored open whatever its mark says, and becomes the current one;
  // false when another program has stored one of its code among the items meanwhile.
  bool add(const Item& item);
  // Change or remove the current item. StoreFault::RowChanged when another program has changed it;
  // overwriting reads it again first.
  void change(const Item& item, bool overwrite = false);
  // The same, and gives the plans of the item its new name, all in one.
  void changeWithPlans(const Item& item, bool overwrite);
  // How many plans another name would leave without their item.
  qsizetype plansLeftBy(const Item& item) const;
  QString currentName() const { return items_->text(u"HDMC"); }
  void remove() { items_->remove(); }

 private:
  Recordset openItems() const;
  void readAgain();
  static void setColumns(Recordset& items, const Item& item);

  ScheduleStore& store_;
  QString category_;
  mutable std::optional<Recordset> items_;  // reading a row may fetch it
};

// An activity that is not completed, as it is offered for planning.
struct OpenItem {
  QString name;
  PackedColour colour;
  QString category;
};

// In ascending number order. Throws StoreError.
QList<OpenItem> readOpenItems(ScheduleStore& store);

// The colour of the first item of exactly that name.
std::optional<PackedColour> colourOf(const QList<OpenItem>& items, const QString& name);

}  // namespace vellora
