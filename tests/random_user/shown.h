#pragma once

#include <QDate>
#include <QStringList>

#include <map>
#include <optional>

namespace vellora {
class PlannerWindow;
}

namespace vellora::test {

// The columns of one stored row as texts.
using Row = QStringList;
using Rows = QList<Row>;
// By table name, each in the order of its rows.
using Tables = std::map<QString, Rows>;

// What stands in a window, read as a person reads it: by texts, not by what is hidden behind them.
struct Shown {
  QString table;    // that a save of the window replaces a part of; empty when it saves nothing
  QString subject;  // the date or the activity that its part belongs to
  bool canBeSaved = true;  // no text that a save must refuse
  Rows rows;               // what a save would store, sorted
  Rows stored;             // what is stored in that part, sorted

  bool isSaved() const { return canBeSaved && rows == stored; }
};
Shown shownIn(const PlannerWindow& window, const Tables& tables);

// What an activity plan's title says that the grid lists.
QString listedActivity(const PlannerWindow& window);
// The date in a caption: "2007年3月5日".
QDate dateInTitle(const PlannerWindow& window);

// As people read them, blanks around and full-width digits included.
std::optional<QDate> dateRead(const QString& text);
std::optional<QTime> timeRead(const QString& text);

}  // namespace vellora::test
