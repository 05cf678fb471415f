#include "schedule/calendar_import.h"

#include "routine/calendar_text.h"
#include "routine/category.h"
#include "routine/text.h"
#include "schedule/calendar_export.h"
#include "schedule/items.h"
#include "schedule/memos.h"
#include "schedule/time_blocks.h"
#include "store/statements.h"

#include <QHash>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace vellora {
namespace {

const QString kUntitled = u"（无标题）"_qs;
constexpr int kMostRequirement = 255;  // characters

// A block's hours on one date.
struct BlockTime {
  QDateTime start;
  QDateTime end;
};

BlockTime timeOn(const TimeBlock& block, QDate date) {
  const QDateTime start(date, block.start, Qt::UTC);
  const bool isOverMidnight = block.end <= block.start;
  return {start, QDateTime(isOverMidnight ? date.addDays(1) : date, block.end, Qt::UTC)};
}

// How well a block fits an occurrence; the greater the better.
using Fit = std::tuple<qint64, qint64, bool>;

// None where they do not overlap. Of blocks that overlap as much, that of the nearest length is
// the best, then the one that the occurrence was exported from.
std::optional<Fit> fitOf(const CalendarOccurrence& when, const BlockTime& time, bool isOwn) {
  const QDateTime end = std::max(when.end, when.start.addSecs(1));
  const qint64 overlap = std::max(when.start, time.start).secsTo(std::min(end, time.end));
  if (overlap <= 0) return {};
  const qint64 difference = time.start.secsTo(time.end) - when.start.secsTo(end);
  return Fit(overlap, -std::abs(difference), isOwn);
}

std::optional<PlanPlace> bestPlace(const CalendarOccurrence& when, const TimeBlockList& blocks) {
  const QString own = blockInUid(when.event->uid);
  std::optional<PlanPlace> best;
  std::optional<Fit> bestFit;
  for (const int days : {0, -1, 1}) {
    const QDate date = when.start.date().addDays(days);
    if (date < kFirstDay || date > kLastDay) continue;
    for (const TimeBlock& block : blocks) {
      if (!block.start.isValid() || !block.end.isValid()) continue;
      const auto fit = fitOf(when, timeOn(block, date), block.code == own);
      if (!fit || (bestFit && *fit <= *bestFit)) continue;
      bestFit = fit;
      best = PlanPlace(date, block.code);
    }
  }
  return best;
}

// As much of a text as fits, with the planner's line breaks.
QString fitting(QString text, qsizetype most, bool& isCut) {
  text.replace(u'\n', kLineBreak);
  if (text.size() <= most) return text;
  isCut = true;
  text.truncate(text[most - 1].isHighSurrogate() ? most - 1 : most);
  return text;
}

QString levelOf(const QString& text) {
  bool isNumber = false;
  const int level = text.toInt(&isNumber);
  return isNumber ? QString::number(level) : u"0"_qs;
}

QString joined(const QString& one, QChar separator, const QString& other) {
  return one.isEmpty() || other.isEmpty() ? one + other : QString(one + separator + other);
}

QString requirementOf(const CalendarEvent& event) {
  return joined(textInCalendar(event.location), u' ', textInCalendar(event.details));
}

PlanTexts textsOf(const CalendarEvent& event, bool& isCut) {
  const QString title = storedItemText(textInCalendar(event.title));
  return {title.isEmpty() ? kUntitled : fitting(title, kItemNameLength, isCut),
          fitting(requirementOf(event), kMostRequirement, isCut), levelOf(event.level)};
}

// The first line of a memo is its event's title.
QString noteOf(const CalendarEvent& event) {
  const QString title = event.title.isEmpty() ? kUntitled : textInCalendar(event.title);
  const QString details = textInCalendar(event.details);
  return details.startsWith(title)
             ? details
             : joined(joined(title, u' ', textInCalendar(event.location)), u'\n', details);
}

// Whether an entry is what the event was exported from, or what it was imported as.
bool isHeld(const CalendarEvent& event, const PlanTexts& texts, const PlanTexts& entry) {
  return areStoredAlike(texts, entry) ||
         (textInCalendar(entry.activity) == textInCalendar(event.title) &&
          textInCalendar(entry.requirement) == requirementOf(event) &&
          levelOf(entry.level) == texts.level);
}

std::map<PlanPlace, std::vector<PlanTexts>> heldBlocks(ScheduleStore& store, QDate first,
                                                       QDate last) {
  std::map<PlanPlace, std::vector<PlanTexts>> held;
  for (PlannedBlock& block : plannedBlocks(store, first, last)) {
    held[block.place] = std::move(block.entries);
  }
  return held;
}

class Planning {
 public:
  Planning(ScheduleStore& store, const CalendarOccurrences& occurrences)
      : store_(store), blocks_(store), occurrences_(occurrences.all) {
    for (auto items = store.open(statements::allItems()); !items.atEnd(); items.moveNext()) {
      items_.insert(items.text(u"HDMC"));
    }
    if (occurrences_.empty()) return;
    held_ = heldBlocks(store, std::max(occurrences_.front().start.date().addDays(-1), kFirstDay),
                       std::min(occurrences_.back().start.date().addDays(1), kLastDay));
  }

  CalendarImport run(const WorkProgress& progress) {
    WorkStep step{u"正在比较……"_qs, 0, static_cast<qint64>(occurrences_.size())};
    for (const CalendarOccurrence& when : occurrences_) {
      report(progress, step);
      ++step.done;
      ImportLine line;
      line.when = when;
      if (when.isDay) {
        planMemo(line);
      } else {
        planBlock(line);
      }
      import_.lines.push_back(std::move(line));
    }
    return std::move(import_);
  }

 private:
  void planMemo(ImportLine& line) {
    line.place.first = line.when.start.date();
    line.texts.activity = noteOf(*line.when.event);
    const QString memo = memoOf(store_, line.place.first);
    line.held = {{memo, {}, {}}};
    const QString lines = QString(u'\n' + textInCalendar(memo) + u'\n');
    const bool isNoted = lines.contains(QString(u'\n' + line.texts.activity + u'\n'));
    const bool isFirst = noted_.emplace(line.place.first, line.texts.activity).second;
    line.state = isNoted || !isFirst ? ImportState::Same : ImportState::WholeDay;
  }

  void planBlock(ImportLine& line) {
    const CalendarEvent& event = *line.when.event;
    bool isCut = false;
    line.texts = textsOf(event, isCut);
    const auto place = bestPlace(line.when, blocks_);
    if (!place) {
      line.state = ImportState::NoBlock;
      return;
    }
    line.place = *place;
    const auto held = held_.find(*place);
    if (held != held_.end()) line.held = held->second;
    line.state = stateOf(line);
    if (line.state != ImportState::New && line.state != ImportState::Taken) return;
    import_.shortened += isCut ? 1 : 0;
    noteActivity(line);
  }

  ImportState stateOf(const ImportLine& line) {
    for (const PlanTexts& entry : line.held) {
      if (isHeld(*line.when.event, line.texts, entry)) return ImportState::Same;
    }
    const auto [first, isFirst] = placed_.emplace(line.place, line.texts);
    if (!isFirst) {
      return areStoredAlike(first->second, line.texts) ? ImportState::Same : ImportState::Repeated;
    }
    return line.held.empty() ? ImportState::New : ImportState::Taken;
  }

  void noteActivity(const ImportLine& line) {
    const QString& name = line.texts.activity;
    if (items_.contains(name)) return;
    const auto [known, isNew] = activities_.emplace(name, import_.activities.size());
    if (isNew) {
      const QString& category = line.when.event->category;
      import_.activities.push_back(
          {name, 0, category.isEmpty() ? categories()[0].label : category});
    }
    ++import_.activities[known->second].count;
  }

  ScheduleStore& store_;
  TimeBlockList blocks_;
  const std::vector<CalendarOccurrence>& occurrences_;
  std::set<QString> items_;
  std::map<PlanPlace, std::vector<PlanTexts>> held_;
  std::map<PlanPlace, PlanTexts> placed_;
  std::set<std::pair<QDate, QString>> noted_;
  std::map<QString, std::size_t> activities_;
  CalendarImport import_;
};

bool isSaved(const ImportLine& line) {
  return line.state == ImportState::New || (line.state == ImportState::Taken && line.replaces);
}

std::set<QString> savedActivities(const CalendarImport& import) {
  std::set<QString> names;
  for (const ImportLine& line : import.lines) {
    if (isSaved(line)) names.insert(line.texts.activity);
  }
  return names;
}

[[noreturn]] void failAsChanged(QDate date) {
  throw StoreError(StoreFault::RowChanged,
                   u"%1 的内容后来又有改动，没有导入。请重新打开日历文件。"_qs.arg(isoDate(date)));
}

void savePlan(ScheduleStore& store, Recordset& plans, const ImportLine& line) {
  const auto& [date, code] = line.place;
  const auto now = plannedBlock(store, line.place);
  if ((now ? now->entries : std::vector<PlanTexts>()) != line.held) failAsChanged(date);
  if (now) store.execute(statements::deletePlanOfBlock(date, code));
  addPlan(plans, date, code, line.texts);
}

// A day's memo grows by each of its lines.
void saveMemo(ScheduleStore& store, const ImportLine& line, QHash<QDate, QString>& memos) {
  const QDate date = line.place.first;
  if (!memos.contains(date)) {
    memos[date] = memoOf(store, date);
    if (memos[date] != line.held.front().activity) failAsChanged(date);
  }
  memos[date] = joined(memos[date], u'\n', line.texts.activity);
  auto rows = store.open(statements::memoOn(date));
  if (rows.isEmpty()) {
    rows.addNew();
    rows.set(u"RQ", date);
  } else {
    rows.edit();
  }
  rows.set(u"Memo", memos[date]);
  rows.update();
}

void saveItem(Recordset& items, const QString& code, const NewActivity& activity) {
  items.addNew();
  items.set(u"HDBH", code);
  items.set(u"hdmc", activity.name);
  items.set(u"FRGB", qint64{itemColour(activity.category)});
  items.set(u"hdlb", activity.category);
  items.set(u"SFWC", 0);
  items.update();
}

// Behind the last one of the catalogue.
int saveItems(ScheduleStore& store, const CalendarImport& import) {
  Recordset items = store.open(statements::allItems());
  QString code = u"000"_qs;
  std::set<QString> names;
  for (; !items.atEnd(); items.moveNext()) {
    code = std::max(code, items.text(u"HDBH"));
    names.insert(items.text(u"HDMC"));
  }
  const std::set<QString> saved = savedActivities(import);
  int count = 0;
  for (const NewActivity& activity : import.activities) {
    const bool isWanted = !activity.category.isEmpty() && saved.contains(activity.name);
    if (!isWanted || names.contains(activity.name)) continue;
    code = ItemCatalogue(store).freeCode(suggestedCode(code));
    saveItem(items, code, activity);
    ++count;
  }
  return count;
}

}  // namespace

CalendarImport planImport(ScheduleStore& store, const CalendarOccurrences& occurrences,
                          const WorkProgress& progress) {
  const ScheduleStore::ReadTransaction oneView(store);
  return Planning(store, occurrences).run(progress);
}

ImportCounts countImport(const CalendarImport& import, bool withMemos) {
  ImportCounts counts;
  for (const ImportLine& line : import.lines) {
    if (isSaved(line)) ++counts.plans;
    if (withMemos && line.state == ImportState::WholeDay) ++counts.memos;
  }
  const std::set<QString> saved = savedActivities(import);
  for (const NewActivity& activity : import.activities) {
    if (!activity.category.isEmpty() && saved.contains(activity.name)) ++counts.items;
  }
  return counts;
}

ImportCounts saveImport(ScheduleStore& store, const CalendarImport& import, bool withMemos,
                        const WorkProgress& progress) {
  ScheduleStore::Transaction all(store);
  WorkStep step{u"正在导入……"_qs, 0, static_cast<qint64>(import.lines.size())};
  ImportCounts counts;
  QHash<QDate, QString> memos;
  Recordset plans = store.open(statements::plansOn(kFirstDay));  // to add to
  for (const ImportLine& line : import.lines) {
    report(progress, step);
    ++step.done;
    if (isSaved(line)) {
      savePlan(store, plans, line);
      ++counts.plans;
    } else if (withMemos && line.state == ImportState::WholeDay) {
      saveMemo(store, line, memos);
      ++counts.memos;
    }
  }
  counts.items = saveItems(store, import);
  all.commit();
  return counts;
}

}  // namespace vellora
