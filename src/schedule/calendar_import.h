#pragma once

#include "routine/work_step.h"
#include "schedule/calendar_occurrences.h"
#include "schedule/plan_moves.h"
#include "store/schedule_store.h"

#include <QString>

#include <vector>

// What a calendar file would bring into the schedule, shown before anything is written.
namespace vellora {

enum class ImportState {
  New,       // the block is free
  Same,      // it is planned or noted already
  Taken,     // another activity holds the block
  Repeated,  // an earlier line of the file takes the block
  NoBlock,   // no block at this time
  WholeDay,  // has no hours; may become a memo
};

struct ImportLine {
  CalendarOccurrence when;
  ImportState state = ImportState::New;
  PlanPlace place;              // of a whole day without a block
  PlanTexts texts;              // of a whole day the memo's text as the activity
  std::vector<PlanTexts> held;  // what the block or the memo holds now
  bool replaces = false;        // what is held, if taken
};

// An activity that is no item of the catalogue.
struct NewActivity {
  QString name;
  int count = 0;
  QString category;  // in which it is added; empty: it is planned without an item
};

struct CalendarImport {
  std::vector<ImportLine> lines;        // by their start
  std::vector<NewActivity> activities;  // in the order of the lines
  int shortened = 0;                    // lines whose texts had to be cut
};

struct ImportCounts {
  int plans = 0;
  int items = 0;
  int memos = 0;
};

// Finds for each occurrence the block that it overlaps most. Reads one view of the schedule; throws
// StoreError, WorkCancelled. The occurrences' file must outlive the result.
CalendarImport planImport(ScheduleStore& store, const CalendarOccurrences& occurrences,
                          const WorkProgress& progress = {});

// Of all that would be saved.
ImportCounts countImport(const CalendarImport& import, bool withMemos);

// Saves it in one transaction: lines that are new or replace what is held, the new activities of
// these, and memos, which are added to those of their days. Throws StoreFault::RowChanged when a
// block or a memo does not hold any more what it was planned with, other StoreErrors, and
// WorkCancelled, with nothing changed.
ImportCounts saveImport(ScheduleStore& store, const CalendarImport& import, bool withMemos,
                        const WorkProgress& progress = {});

}  // namespace vellora
