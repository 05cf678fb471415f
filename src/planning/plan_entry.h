#pragma once

#include "store/schedule_store.h"
#include "store/store_error.h"

#include <QDate>
#include <QString>

#include <optional>

namespace vellora {

// What a person says about one plan entry, as typed.
struct PlanTexts {
  QString activity;
  QString requirement;
  QString level;  // its numeric value is stored; see numericValue
  friend bool operator==(const PlanTexts&, const PlanTexts&) = default;
};

// Whether two texts are stored alike: "3x" and "3" are one level.
bool areStoredAlike(const PlanTexts& one, const PlanTexts& other);

// Reads the current one of several plan entries.
PlanTexts planTexts(RowReader& entry);

// The first entry that holds a block on a date; none when the block is free. Throws StoreError.
std::optional<PlanTexts> entryOfBlock(ScheduleStore& store, QDate date, const QString& code);

// Changes the current row to the texts, or leaves it alone when it says the same already. Throws
// StoreError when a text is too long or a level too large.
void editPlan(Recordset& entry, const PlanTexts& texts);
void addPlan(Recordset& entries, QDate date, const QString& code, const PlanTexts& texts);

// What a user reads when nothing at all was saved: because of the error, or because of it after a
// row had already failed.
QString nothingSaved(const QString& failureInRow, const StoreError& error);

}  // namespace vellora
