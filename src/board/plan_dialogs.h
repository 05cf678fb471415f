#pragma once

#include "schedule/items.h"
#include "schedule/plan_moves.h"
#include "schedule/time_blocks.h"

#include <QDate>
#include <QString>

#include <optional>
#include <set>

class QWidget;

// What the board asks before it changes plans. Each is a modal dialog; none is returned when the
// user cancels it.
namespace vellora {

class Clock;

// Requirement and level, ended by Enter; the activity stays.
std::optional<PlanTexts> askPlanTexts(QWidget* parent, const PlanTexts& texts);

// A date, and one of the blocks.
std::optional<PlanPlace> askPlace(QWidget* parent, const Clock& clock, const TimeBlockList& blocks,
                                  const PlanPlace& proposed);

std::optional<QDate> askDate(QWidget* parent, const Clock& clock, const QString& title,
                             QDate proposed);

// One of the activities, listed by category in their colours and narrowed down by what is typed,
// from `typed` on.
std::optional<QString> askActivity(QWidget* parent, const QList<OpenItem>& items,
                                   const QString& typed);

// How many weeks follow.
std::optional<int> askWeeks(QWidget* parent, const QString& title);

// What will be done, in a sentence, and every place that is taken with a box to tick where the new
// entry is to replace the old one. Returns the places that keep what they have.
std::optional<std::set<PlanPlace>> askAboutConflicts(QWidget* parent, const QString& what,
                                                     const std::vector<PlanConflict>& conflicts,
                                                     const TimeBlockList& blocks);

// "星期三 早读"; with the date where it is of another week than `first` begins.
QString placeText(const PlanPlace& place, const TimeBlockList& blocks, QDate first);

}  // namespace vellora
