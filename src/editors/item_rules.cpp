#include "editors/item_rules.h"

#include "routine/category.h"
#include "routine/number_text.h"

namespace vellora {
namespace {

constexpr qsizetype kCountedCharacters = 3;
constexpr int kRowHeight = 22;
constexpr int kNewRowHeight = 24;

struct ItemHeading {
  const char16_t* text;
  int width;
};

constexpr ItemHeading kHeadings[kItemCols]{
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
  sheet.SetCols(kItemCols);
  sheet.SetRows(0);
  sheet.SetDefaultFont(8, kFontRegular, u"宋体"_qs);
  sheet.SetDefaultRowHeight(kRowHeight);
  for (int col = 0; col < kItemCols; ++col) {
    sheet.SetCellText(col, kHeadingRow, QString::fromUtf16(kHeadings[col].text));
    sheet.SetCellAlign(col, kHeadingRow, kAlignCentred);
    sheet.SetCellAlign(col, kEveryRow, kAlignCentred);
    sheet.SetColumnWidth(col, kHeadings[col].width);
  }
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

}  // namespace vellora
