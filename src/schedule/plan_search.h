#pragma once

#include "schedule/plan_entries.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QString>

#include <chrono>
#include <optional>
#include <vector>

namespace vellora {

// A text of the schedule in which something was found.
struct SearchHit {
  QDate day;
  QString code;  // of the block; empty for a memo or a week's name
  QString text;
};

// Looks through plans, memos and week names for a text, without regard to the case of Latin
// letters, a slice at a time so that typing goes on meanwhile. Changes of the schedule in between
// may be missed.
class PlanSearch {
 public:
  // Throws StoreError. Days from `from` on are looked through first.
  PlanSearch(ScheduleStore& store, const QString& text, QDate from);

  // Looks on for about that long, and returns what was found, in no order. Throws StoreError.
  std::vector<SearchHit> next(std::chrono::milliseconds slice);
  bool isOver() const { return part_ == kParts; }

 private:
  static constexpr int kParts = 4;

  void openPart();
  std::optional<SearchHit> hitIn(RowCursor& row) const;

  ScheduleStore& store_;
  QString text_;
  QDate from_;
  int part_ = 0;  // week names, memos, plans from the day on, plans before it
  std::optional<RowCursor> rows_;
};

}  // namespace vellora
