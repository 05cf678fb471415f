#pragma once

#include "grid/sheet/sheet.h"
#include "routine/colour.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QString>

#include <array>

namespace vellora {

// The board is a sheet of eight columns: row 0 holds the seven days, column 0 the time blocks.
inline constexpr int kBoardCols = 8;
inline constexpr int kBoardDays = 7;
inline constexpr PackedColour kPlanPaper = packColour(230, 220, 255);

// What the fill finds besides the cells.
struct WeekTexts {
  QString memo;                             // of the first day
  QString weekName;                         // of the first range that holds the first day
  std::array<QString, kBoardDays> memos{};  // of every day
};

// One row per time block in the order of their codes, below the row of days: hours and name in
// column 0, the block's code as its tag.
void BuildTimeRows(ScheduleStore& store, Sheet& sheet);

// The seven days from `first`: headings with the date as tag, and in each planned cell the
// activity, its requirement, its colour, and its name as tag. Reads one view of the database.
WeekTexts FillWeek(ScheduleStore& store, Sheet& sheet, QDate first);

// "11月23日 – 11月29日   第48周": the days that the board shows, and their ISO weeks.
QString shownDays(QDate first);

// Deletes all plans, memos and week names, and the chosen skin with them, or nothing.
void deleteAllPlans(ScheduleStore& store);

// The board's caption: program, date, and the memo if there is one.
QString boardCaption(QDate first, const QString& memo);

}  // namespace vellora
