#pragma once

#include <QDate>

namespace vellora {

class ScheduleStore;

// Each writes into an empty schedule, as one change.

// What a newcomer starts from: a day of thirteen blocks, a small catalogue in all six categories,
// seven planned days from today, their name, and a memo that tells how to go on.
void writeStarter(ScheduleStore& store, QDate today);

// The same day and catalogue with plans from two weeks before today to four weeks after, a term of
// named weeks, and memos.
void writeDemonstration(ScheduleStore& store, QDate today);

// Every block of every day planned for that many years up to today.
void writeYears(ScheduleStore& store, QDate today, int years, int blocks);

}  // namespace vellora
