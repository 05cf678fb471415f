#include "schedule/week.h"

#include "routine/calendar_text.h"
#include "routine/category.h"
#include "store/statements.h"

#include <QHash>

namespace vellora {
namespace {

const QString& boardFace() {
  static const QString kFace = u"宋体"_qs;
  return kFace;
}

// One column of the first row, or nothing when there is no row.
QString firstText(ScheduleStore& store, const Query& statement, QStringView column) {
  RowCursor rows = store.readOnce(statement);
  return rows.next() ? rows.text(column) : QString();
}

void fillHeadings(Sheet& sheet, QDate first) {
  for (int col = 1; col < kBoardCols; ++col) {
    const QDate day = first.addDays(col - 1);
    sheet.SetCellText(col, 0, monthAndDay(day) + kLineBreak + weekdayName(day));
    sheet.SetCellTag(col, 0, isoDate(day));
  }
  for (int col = 0; col < kBoardCols; ++col) {
    sheet.SetCellAlign(col, 0, kAlignCentred);
    sheet.SetCellFont(col, 0, 8, kFontBold, boardFace());
  }
}

// What the cells of one activity share.
struct ActivityLook {
  PackedColour text = kBlack;
  PackedColour paper = kWhite;
  int category = 0;
};
// By the activity's name; a week has few, each in many cells.
using ActivityLooks = QHash<QString, ActivityLook>;

const ActivityLook& lookOf(ScheduleStore& store, ActivityLooks& looks, const QString& activity) {
  const auto known = looks.constFind(activity);
  if (known != looks.constEnd()) return *known;
  ActivityLook look;
  RowCursor item = store.readOnce(statements::itemNamed(activity));
  if (item.next()) {
    look = {static_cast<PackedColour>(item.number(u"FRGB")), kPlanPaper,
            categoryIndex(item.text(u"HDLB")).value_or(-1) + 1};
  }
  return *looks.insert(activity, look);
}

void fillPlannedCell(ScheduleStore& store, ActivityLooks& looks, Sheet& sheet, int col, int row,
                     RowCursor& plan) {
  const QString activity = plan.text(u"HDMC");
  const ActivityLook& look = lookOf(store, looks, activity);
  sheet.SetCellText(col, row, activity + kLineBreak + plan.text(u"HDYQ"));
  sheet.SetCellTag(col, row, activity);
  sheet.SetCellColors(col, row, look.text, look.paper);
  sheet.SetCellCategory(col, row, look.category);
  sheet.SetCellAlign(col, row, kAlignCentred);
}

// Black on white, as cells without colours of their own are: a skin may show it otherwise.
void emptyCell(Sheet& sheet, int col, int row) {
  CellSettings settings = sheet.SettingsAt(col, row);
  settings.colours.reset();
  settings.category.reset();
  sheet.SetCellSettings(col, row, settings);
  sheet.SetCellText(col, row, QString());
  sheet.SetCellTag(col, row, QString());
}

}  // namespace

void BuildTimeRows(ScheduleStore& store, Sheet& sheet) {
  auto blocks = store.open(statements::blocksByCode());
  sheet.SetRows(static_cast<int>(blocks.count()) + 1);
  for (int col = 1; col < kBoardCols; ++col) sheet.SetCellWrap(col, kEveryRow, true);
  for (int row = 1; !blocks.atEnd(); ++row, blocks.moveNext()) {
    sheet.SetCellText(
        0, row,
        blockHours(blocks.time(u"SJ0"), blocks.time(u"SJ1")) + kLineBreak + blocks.text(u"sjkm"));
    sheet.SetCellTag(0, row, blocks.text(u"SJKH"));
    sheet.SetCellAlign(0, row, kAlignCentred);
    sheet.SetCellWrap(0, row, true);
    for (int col = 1; col < kBoardCols; ++col) sheet.SetCellText(col, row, QString());
  }
}

WeekTexts FillWeek(ScheduleStore& store, Sheet& sheet, QDate first) {
  const ScheduleStore::ReadTransaction oneView(store);
  WeekTexts texts{firstText(store, statements::memoOn(first), u"Memo"),
                  firstText(store, statements::weekNamesAt(first), u"MM"),
                  {}};
  RowCursor memos = store.readOnce(statements::memosBetween(first, first.addDays(kBoardDays - 1)));
  while (memos.next()) {
    const qint64 day = first.daysTo(memos.date(u"RQ"));
    if (day >= 0 && day < kBoardDays)
      texts.memos[static_cast<std::size_t>(day)] = memos.text(u"Memo");
  }
  fillHeadings(sheet, first);
  ActivityLooks looks;
  for (int col = 1; col < kBoardCols; ++col) {
    const QDate day = first.addDays(col - 1);
    for (int row = 1; row < sheet.Rows(); ++row) {
      RowCursor plan = store.readOnce(statements::planOfBlock(day, sheet.CellTag(0, row)));
      if (plan.next()) {
        fillPlannedCell(store, looks, sheet, col, row, plan);
      } else {
        emptyCell(sheet, col, row);
      }
    }
  }
  return texts;
}

QString shownDays(QDate first) {
  const QDate last = first.addDays(kBoardDays - 1);
  QString weeks = QString::number(first.weekNumber());
  if (first.weekNumber() != last.weekNumber()) weeks += u'、' + QString::number(last.weekNumber());
  return first.toString(u"M月d日") + u" – "_qs + last.toString(u"M月d日") + u"   第"_qs + weeks +
         u'周';
}

void deleteAllPlans(ScheduleStore& store) {
  ScheduleStore::Transaction all(store);
  for (const auto& statement : {statements::deletePlans(), statements::deleteMemos(),
                                statements::deleteWeekNames(), statements::deleteSkinSetting()}) {
    store.execute(statement);
  }
  all.commit();
}

QString boardCaption(QDate first, const QString& memo) {
  const QString caption = u"   Vellora日程表2.8版   "_qs + isoDate(first);
  return memo.isEmpty() ? caption : caption + u"        "_qs + memo;
}

}  // namespace vellora
