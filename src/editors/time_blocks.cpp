#include "editors/time_blocks.h"

#include "store/statements.h"

namespace vellora {
namespace {

constexpr TableColumn kColumns[]{
    {u"SJ0", u"开始时间", 85, CellContent::Time},
    {u"SJ1", u"结束时间", 85, CellContent::Time},
    {u"SJKH", u"时间块编号", 110, CellContent::Text},
    {u"sjkm", u"时间块名称", 145, CellContent::Text},
};

constexpr WholeTable kTable{kColumns, statements::blocksByStart, statements::allBlocks,
                            statements::deleteBlocks};

}  // namespace

void setUpTimeBlocks(Sheet& sheet) {
  setUpSheet(sheet, kTable, kTimeBlockRows);
}

TableRows LoadTimeBlocks(ScheduleStore& store, Sheet& sheet) {
  return loadTable(store, sheet, kTable, kTimeBlockRows, 0);
}

TableRows SaveTimeBlocks(ScheduleStore& store, const Sheet& sheet, const TableRows* asRead) {
  return saveTable(store, sheet, kTable, asRead);
}

Changes timeBlockChanges(const Sheet& sheet, const TableRows& stored) {
  return tableChanges(sheet, kTable, stored);
}

}  // namespace vellora
