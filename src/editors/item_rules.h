#pragma once

#include "grid/sheet/sheet.h"
#include "store/recordset.h"

#include <QString>

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

}  // namespace vellora
