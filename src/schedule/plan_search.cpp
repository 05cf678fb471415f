#include "schedule/plan_search.h"

#include "routine/calendar_text.h"
#include "store/statements.h"

#include <QElapsedTimer>

namespace vellora {
namespace {

constexpr int kRowsBetweenLooks = 64;  // at the clock

enum Part { WeekNames, Memos, PlansToCome, PlansBefore };

}  // namespace

PlanSearch::PlanSearch(ScheduleStore& store, const QString& text, QDate from)
    : store_(store), text_(text), from_(from) {
  openPart();
}

void PlanSearch::openPart() {
  rows_.reset();
  switch (part_) {
    case WeekNames:
      rows_.emplace(store_.readOnce(statements::allWeekNames()));
      break;
    case Memos:
      rows_.emplace(store_.readOnce(statements::allMemos()));
      break;
    case PlansToCome:
      rows_.emplace(store_.readOnce(statements::plansBetween(from_, kLastDay)));
      break;
    case PlansBefore:
      rows_.emplace(store_.readOnce(statements::plansBetween(kFirstDay, from_.addDays(-1))));
      break;
    default:
      break;
  }
}

std::vector<SearchHit> PlanSearch::next(std::chrono::milliseconds slice) {
  QElapsedTimer clock;
  clock.start();
  std::vector<SearchHit> hits;
  while (!isOver() && !clock.hasExpired(slice.count())) {
    for (int i = 0; i < kRowsBetweenLooks; ++i) {
      if (!rows_->next()) {
        ++part_;
        openPart();
        break;
      }
      if (auto hit = hitIn(*rows_)) hits.push_back(*std::move(hit));
    }
  }
  return hits;
}

std::optional<SearchHit> PlanSearch::hitIn(RowCursor& row) const {
  const auto found = [this](const QString& text) {
    return text.contains(text_, Qt::CaseInsensitive);
  };
  SearchHit hit;
  if (part_ == WeekNames) {
    hit = {row.date(u"KSRQ"), {}, row.text(u"MM")};
    if (!found(hit.text)) return {};
  } else if (part_ == Memos) {
    hit = {row.date(u"RQ"), {}, row.text(u"Memo")};
    if (!found(hit.text)) return {};
  } else {
    const QString activity = row.text(u"HDMC");
    const QString requirement = row.text(u"HDYQ");
    if (!found(activity) && !found(requirement)) return {};
    hit = {row.date(u"RQ"), row.text(u"SJKH"),
           requirement.isEmpty() ? activity : activity + u' ' + requirement};
  }
  return hit.day.isValid() ? std::optional(hit) : std::nullopt;
}

}  // namespace vellora
