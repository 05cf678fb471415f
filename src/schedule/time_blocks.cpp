#include "schedule/time_blocks.h"

#include "routine/calendar_text.h"
#include "routine/text.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <set>

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

// Two plans never get into one place.
void movePlans(ScheduleStore& store, const QString& from, const QString& to) {
  auto taken = store.open(statements::plansInBothBlocks(from, to));
  if (!taken.atEnd()) {
    throw StoreError(
        StoreFault::Other,
        u"没有保存：编号%1的计划不能改到编号%2，因为那里已有安排：%3 等 %4 处。"_qs.arg(
            quoted(from), quoted(to), isoDate(taken.date(u"RQ")), QString::number(taken.count())));
  }
  store.execute(statements::moveToBlock(from, to));
}

}  // namespace

TimeBlockList::TimeBlockList(ScheduleStore& store) {
  auto rows = store.open(statements::blocksByStart());
  for (; !rows.atEnd(); rows.moveNext()) {
    const QTime start = rows.time(u"SJ0");
    const QTime end = rows.time(u"SJ1");
    const QString hours = blockHours(start, end);
    const QString name = rows.text(u"sjkm");
    const TimeBlock block{rows.text(u"SJKH"),
                          hours + kLineBreak + name,
                          hours + u' ' + name,
                          hours,
                          name,
                          start,
                          end};
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

std::vector<std::pair<QString, QString>> completeBlocks(const Sheet& sheet) {
  std::vector<std::pair<QString, QString>> blocks;
  for (int row = 0; row < sheet.Rows(); ++row) {
    QStringList texts;
    for (int col = 0; col < sheet.Cols(); ++col) texts << sheet.GetCellText(col, row);
    if (texts.contains(QString())) continue;
    blocks.emplace_back(texts[2], u"%1-%2 %3"_qs.arg(texts[0], texts[1], texts[3]));
  }
  return blocks;
}

std::vector<LostBlock> blocksLostBy(ScheduleStore& store, const Sheet& sheet,
                                    const TableRows& stored) {
  std::set<QString> codes;
  for (const QStringList& row : stored) codes.insert(row[2]);
  for (const auto& [code, line] : completeBlocks(sheet)) codes.erase(code);
  std::vector<LostBlock> lost;
  for (const QString& code : codes) {
    const qsizetype plans = store.open(statements::plansInBlock(code)).count();
    if (plans > 0) lost.push_back({code, plans});
  }
  return lost;
}

TableRows SaveTimeBlocks(ScheduleStore& store, const Sheet& sheet, const TableRows* asRead,
                         const NewCodes& newCodes) {
  return saveTable(store, sheet, kBlockTable, asRead, [&] {
    for (const auto& [from, to] : newCodes) movePlans(store, from, to);
  });
}

Changes timeBlockChanges(const Sheet& sheet, const TableRows& stored) {
  return tableChanges(sheet, kBlockTable, stored);
}

}  // namespace vellora
