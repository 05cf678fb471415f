#include "exchange/import_rows.h"

#include "routine/calendar_text.h"
#include "routine/text.h"
#include "schedule/list_columns.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace vellora {
namespace {

constexpr int kImportRowHeight = 22;

constexpr ListColumn kImportColumns[kImportCols]{{u"日期", 130}, {u"时间", 90},  {u"时间块", 110},
                                                 {u"活动", 150}, {u"要求", 170}, {u"处理", 208}};

QString hoursOf(const CalendarOccurrence& when) {
  if (when.isDay) return u"全天"_qs;
  const qint64 days = when.start.date().daysTo(when.end.date());
  const QString hours = blockHours(when.start.time(), when.end.time());
  return days > 0 ? hours + u" +%1天"_qs.arg(days) : hours;
}

// With its date where that is not the occurrence's own.
QString blockOf(const ImportLine& line, const TimeBlockList& blocks) {
  const TimeBlock* block = blocks.find(line.place.second);
  if (!block) return {};
  const QString name = block->name.isEmpty() ? block->hours : block->name;
  const bool isSameDay = line.place.first == line.when.start.date();
  return isSameDay ? name : QString(monthAndDay(line.place.first) + u' ' + name);
}

QString oneLine(QString text) {
  return text.replace(kLineBreak, u' ').replace(u'\n', u' ');
}

// Of the same activity what differs.
QString heldBy(const ImportLine& line) {
  const PlanTexts& held = line.held.front();
  if (held.activity != line.texts.activity) return quoted(held.activity);
  const bool isRequirement = held.requirement != line.texts.requirement;
  return isRequirement ? u"要求"_qs + quoted(oneLine(held.requirement)) : u"等级 "_qs + held.level;
}

QString fateOf(const ImportLine& line, bool withMemos) {
  const QString held = line.held.empty() ? QString() : heldBy(line);
  switch (line.state) {
    case ImportState::New:
      return u"导入"_qs;
    case ImportState::Same:
      return u"已经相同"_qs;
    case ImportState::Taken:
      return (line.replaces ? u"替换"_qs : u"保留原有"_qs) + held;
    case ImportState::Repeated:
      return u"不导入：前面的一项已占用"_qs;
    case ImportState::NoBlock:
      return u"没有合适的时间块"_qs;
    case ImportState::WholeDay:
      return withMemos ? u"记入备忘"_qs : u"不导入：全天事项"_qs;
  }
  return {};
}

}  // namespace

void setUpImportRows(Sheet& sheet) {
  setUpList(sheet, kImportColumns, kImportRowHeight);
  sheet.SetRows(0);
}

void showImport(Sheet& sheet, const CalendarImport& import, const TimeBlockList& blocks,
                bool withMemos) {
  sheet.SetRows(0);
  sheet.SetRows(static_cast<int>(import.lines.size()));
  int row = 0;
  for (const ImportLine& line : import.lines) {
    const QDate date = line.when.start.date();
    const std::array<QString, kImportCols> texts{
        isoDate(date) + u' ' + weekdayName(date), hoursOf(line.when), blockOf(line, blocks),
        oneLine(line.texts.activity), oneLine(line.texts.requirement)};
    sheet.SetRowTexts(row, texts);
    showFate(sheet, row++, line, withMemos);
  }
}

void showFate(Sheet& sheet, int row, const ImportLine& line, bool withMemos) {
  sheet.SetCellText(kImportFate, row, fateOf(line, withMemos));
}

QString importSummary(const CalendarImport& import, const CalendarOccurrences& occurrences) {
  if (import.lines.empty()) return u"这段日期里没有事项。"_qs;
  const auto count = [&](ImportState state) {
    return std::count_if(import.lines.begin(), import.lines.end(),
                         [state](const ImportLine& line) { return line.state == state; });
  };
  const auto same = count(ImportState::Same);
  if (same == std::ssize(import.lines)) {
    return u"一共 %1 次，全部已经相同，没有要导入的。"_qs.arg(same);
  }
  QStringList parts;
  const auto add = [&parts](const QString& text, qsizetype number) {
    if (number > 0) parts << text.arg(number);
  };
  add(u"新的 %1"_qs, count(ImportState::New));
  add(u"已有别的安排 %1"_qs, count(ImportState::Taken));
  add(u"已经相同 %1"_qs, same);
  add(u"互相重叠 %1"_qs, count(ImportState::Repeated));
  add(u"没有合适的时间块 %1"_qs, count(ImportState::NoBlock));
  add(u"全天 %1"_qs, count(ImportState::WholeDay));
  add(u"文字太长、只取开头 %1"_qs, import.shortened);
  add(u"已取消 %1"_qs, occurrences.cancelled);
  add(u"看不懂 %1"_qs, occurrences.unreadable);
  QString text = u"一共 %1 次："_qs.arg(import.lines.size()) + parts.join(u"，"_qs) + u"。";
  if (!occurrences.unknownZones.isEmpty()) {
    text += u"不认识的时区当作本地时间：%1。"_qs.arg(
        shortened(occurrences.unknownZones.join(u"、"_qs)));
  }
  return text;
}

}  // namespace vellora
