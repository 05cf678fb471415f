#include "schedule/time_blocks.h"

#include "routine/calendar_text.h"
#include "store/statements.h"

namespace vellora {
namespace {

constexpr TableColumn kBlockColumns[]{
    {u"SJ0", u"开始时间", 85, CellContent::Time},
    {u"SJ1", u"结束时间", 85, CellContent::Time},
    {u"SJKH", u"时间块编号", 110, CellContent::Text},
    {u"sjkm", u"时间块名称", 145, CellContent::Text},
};

constexpr WholeTable kBlockTable{kBlockColumns, statements::blocksByStart, statements::allBlocks,
                                 statements::deleteBlocks};

}  // namespace

TimeBlockList::TimeBlockList(ScheduleStore& store) {
  auto rows = store.open(statements::blocksByStart());
  for (; !rows.atEnd(); rows.moveNext()) {
    const QString hours = blockHours(rows.time(u"SJ0"), rows.time(u"SJ1"));
    const QString name = rows.text(u"sjkm");
    const TimeBlock block{rows.text(u"SJKH"), hours + kLineBreak + name, hours + u' ' + name, hours,
                          name};
    if (!position_by_code_.contains(block.code)) position_by_code_[block.code] = blocks_.size();
    blocks_.append(block);
  }
}

const TimeBlock* TimeBlockList::at(qsizetype position) const {
  return position >= 0 && position < blocks_.size() ? &blocks_[position] : nullptr;
}

const TimeBlock* TimeBlockList::meant(const QString& typed) const {
  QString text = typed.trimmed();
  text.replace(u'：', u':').replace(kLineBreak, u' ');
  if (const TimeBlock* block = find(text)) return block;
  const TimeBlock* meant = nullptr;
  for (const TimeBlock& block : blocks_) {
    if (text != block.name && text != block.hours && text != block.line) continue;
    if (meant && meant->code != block.code) return nullptr;
    if (!meant) meant = &block;
  }
  return meant;
}

const TimeBlock* TimeBlockList::find(const QString& code) const {
  return at(position_by_code_.value(code, -1));
}

void setUpTimeBlocks(Sheet& sheet) {
  setUpSheet(sheet, kBlockTable, kTimeBlockRows);
}

TableRows LoadTimeBlocks(ScheduleStore& store, Sheet& sheet) {
  return loadTable(store, sheet, kBlockTable, kTimeBlockRows, 0);
}

TableRows SaveTimeBlocks(ScheduleStore& store, const Sheet& sheet, const TableRows* asRead) {
  return saveTable(store, sheet, kBlockTable, asRead);
}

Changes timeBlockChanges(const Sheet& sheet, const TableRows& stored) {
  return tableChanges(sheet, kBlockTable, stored);
}

}  // namespace vellora
