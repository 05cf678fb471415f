#include "schedule/plan_entries.h"

#include "routine/number_text.h"
#include "store/statements.h"

namespace vellora {
namespace {

double levelNumber(const PlanTexts& texts) {
  return roundHalfEven(numericValue(texts.level));
}

bool isFilled(Recordset& entry) {
  return entry.value(u"HDYQ").isValid() && entry.value(u"ZYDJ").isValid();
}

void store(Recordset& entry, const PlanTexts& texts) {
  entry.set(u"hdmc", texts.activity);
  entry.set(u"HDYQ", texts.requirement);
  entry.set(u"ZYDJ", numericValue(texts.level));
  entry.update();
}

}  // namespace

bool areStoredAlike(const PlanTexts& one, const PlanTexts& other) {
  return one.activity == other.activity && one.requirement == other.requirement &&
         levelNumber(one) == levelNumber(other);
}

PlanTexts readPlanTexts(RowReader& entry) {
  return {entry.text(u"HDMC"), entry.text(u"HDYQ"), entry.text(u"ZYDJ")};
}

std::optional<PlanTexts> entryOfBlock(ScheduleStore& store, QDate date, const QString& code) {
  auto entries = store.readOnce(statements::planOfBlock(date, code));
  return entries.next() ? std::optional(readPlanTexts(entries)) : std::nullopt;
}

void editPlan(Recordset& entry, const PlanTexts& texts) {
  if (isFilled(entry) && areStoredAlike(readPlanTexts(entry), texts)) return;
  entry.edit();
  store(entry, texts);
}

void addPlan(Recordset& entries, QDate date, const QString& code, const PlanTexts& texts) {
  entries.addNew();
  entries.set(u"RQ", date);
  entries.set(u"SJKH", code);
  store(entries, texts);
}

QString nothingSaved(const QString& failureInRow, const StoreError& error) {
  if (failureInRow.isEmpty()) return error.description();
  return failureInRow + u"\n这次保存没有写入任何内容。";
}

SavedEntries::SavedEntries(ScheduleStore& store, const QString& activity) {
  read(store.open(statements::plansOfActivity(activity)));
}

SavedEntries::SavedEntries(ScheduleStore& store, QDate date) {
  read(store.open(statements::plansOn(date)));
}

void SavedEntries::read(Recordset entries) {
  for (; !entries.atEnd(); entries.moveNext()) {
    if (!isReadable(entries)) {
      ++unreadable_;
      continue;
    }
    const Place place(entries.date(u"RQ"), entries.text(u"SJKH"));
    if (!entries_.contains(place)) entries_.insert(place, readPlanTexts(entries));
  }
}

const PlanTexts* SavedEntries::find(QDate date, const QString& code) const {
  const auto entry = entries_.constFind({date, code});
  return entry == entries_.cend() ? nullptr : &*entry;
}

bool isReadable(RowReader& entry) {
  return entry.date(u"RQ").isValid() && !entry.text(u"SJKH").isEmpty();
}

}  // namespace vellora
