#pragma once

#include <QDate>
#include <QString>

// Every statement the windows issue, in the planner's dialect. Values enter only through the
// literal helpers of dialect.h, so that no name or code can change a statement.
namespace vellora::statements {

// HD, the activity items.
QString allItems();
QString itemsOfCategory(const QString& category);
QString openItems();
QString itemNamed(const QString& name);
QString itemNumberIs(const QString& number);  // condition for findFirst
QString itemNameIs(const QString& name);      // condition for findFirst

// SJ, the time blocks.
QString blocksByStart();
QString blocksByCode();
QString blockWithCode(const QString& code);
QString blockCodeIs(const QString& code);  // condition for findFirst
QString allBlocks();
QString deleteBlocks();

// JH, the plan entries.
QString plansOn(QDate date);
QString plansBetween(QDate first, QDate last);
QString planOfBlock(QDate date, const QString& code);
QString plansOfActivity(const QString& name);
QString planOfActivityInBlock(const QString& name, QDate date, const QString& code);
QString allPlans();
QString deletePlansOfActivity(const QString& name);
QString deletePlanOfBlock(QDate date, const QString& code);
QString deletePlans();

// BW, the memos.
QString memoOn(QDate date);
QString deleteMemos();

// MM, the week names.
QString weekNamesAt(QDate date);
QString weekNamesByStart();
QString allWeekNames();
QString deleteWeekNames();

// JM, the skin setting.
QString skinSetting();
QString deleteSkinSetting();

// Planned minutes (SJ), and number of entries (CS) per activity, from start to end inclusive.
QString minutesByCategory(QDate start, QDate end);
QString minutesByActivity(QDate start, QDate end);

// Any table by name: backup and restore.
QString deleteAllFrom(const QString& table);

}  // namespace vellora::statements
