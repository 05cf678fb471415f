#pragma once

#include "store/query.h"

// Every statement and condition that the windows issue.
namespace vellora::statements {

// HD, the activity items.
Query allItems();
Query itemsOfCategory(const QString& category);
Query openItems();
Query itemNamed(const QString& name);
Query itemNumbered(const QString& number);
Query itemNumberIs(const QString& number);  // condition for findFirst
Query itemNameIs(const QString& name);      // condition for findFirst

// SJ, the time blocks.
Query blocksByStart();
Query blocksByCode();
Query blockWithCode(const QString& code);
Query blockCodeIs(const QString& code);  // condition for findFirst
Query allBlocks();
Query deleteBlocks();

// JH, the plan entries.
Query plansOn(QDate date);
Query plansBetween(QDate first, QDate last);
Query planOfBlock(QDate date, const QString& code);
Query plansOfActivity(const QString& name);
Query planOfActivityInBlock(const QString& name, QDate date, const QString& code);
Query allPlans();
Query plansInBlock(const QString& code);
// Those of one block on dates on which another has plans too.
Query plansInBothBlocks(const QString& code, const QString& other);
Query moveToBlock(const QString& from, const QString& to);
Query renamePlans(const QString& from, const QString& to);
Query deletePlansOfActivity(const QString& name);
Query deletePlanOfBlock(QDate date, const QString& code);
Query deletePlans();

// BW, the memos.
Query allMemos();
Query memoOn(QDate date);
Query memosBetween(QDate first, QDate last);
Query deleteMemos();

// MM, the week names.
Query weekNamesAt(QDate date);
Query weekNamesByStart();
Query allWeekNames();
Query deleteWeekNames();

// JM, the skin setting.
Query skinSetting();
Query deleteSkinSetting();

// Planned minutes (SJ), and number of entries (CS) per activity, from start to end inclusive.
Query minutesByCategory(QDate start, QDate end);
Query minutesByActivity(QDate start, QDate end);
Query minutesByDay(QDate start, QDate end);  // and category

// Any table by name: backup and restore.
Query deleteAllFrom(const QString& table);

}  // namespace vellora::statements
