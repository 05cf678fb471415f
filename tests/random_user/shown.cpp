#include "random_user/shown.h"

#include "grid/surface/grid_surface.h"
#include "random_user/screen.h"
#include "routine/calendar_text.h"
#include "routine/number_text.h"
#include "shell/planner_window.h"

#include <QRegularExpression>
#include <QSet>

#include <set>

namespace vellora::test {
namespace {

QString narrow(const QString& text) {
  return text.normalized(QString::NormalizationForm_KC).trimmed();
}

QString lines(QString text) {
  return text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
}

// A text that begins with a blank is no number.
QString levelRead(const QString& text) {
  const QString narrowText = text.normalized(QString::NormalizationForm_KC);
  return numberText(roundHalfEven(numericValue(narrowText)));
}

Rows sorted(Rows rows) {
  std::sort(rows.begin(), rows.end());
  return rows;
}

// A time block by the text that planning windows show for it.
QMultiHash<QString, QString> codesByText(const Tables& tables) {
  QMultiHash<QString, QString> codes;
  for (const Row& block : tables.at(u"SJ"_qs)) {
    const QString hours = block[2].left(5) + u'-' + block[3].left(5);
    codes.insert(hours + u'\n' + block[1], block[0]);
  }
  return codes;
}

// The hidden code decides only where several blocks, or none, have the text.
QString codeOf(const QMultiHash<QString, QString>& codes, const GridSurface& grid, int col,
               int row) {
  const QString text = lines(grid.GetCellText(col, row));
  const QString tag = grid.CellTag(col, row);
  const QStringList named = codes.values(text);
  return named.isEmpty() || named.contains(tag) ? tag : named.first();
}

// A plan's entries by date and block: the first of several counts.
using Plan = std::map<std::pair<QString, QString>, Row>;

Rows rowsOfPlan(const Plan& plan) {
  Rows rows;
  for (const auto& [place, row] : plan) rows << row;
  return sorted(rows);
}

Row planRow(const QString& date, const QString& code, const Row& texts) {
  return {date, code, texts[0], lines(texts[1]), levelRead(texts[2])};
}

Row textsFrom(const GridSurface& grid, int firstCol, int row) {
  return {grid.GetCellText(firstCol, row), grid.GetCellText(firstCol + 1, row),
          grid.GetCellText(firstCol + 2, row)};
}

void addStored(Plan& plan, const Row& row) {
  plan.try_emplace({row[0], row[1]}, planRow(row[0], row[1], row.mid(2)));
}

Shown dailyPlan(const PlannerWindow& window, const Tables& tables) {
  const GridSurface& grid = *gridOf(window);
  const QString date = isoDate(dateInTitle(window));
  const auto codes = codesByText(tables);
  QSet<QString> rows;
  Plan shown;
  for (int row = 0; row < grid.Rows(); ++row) {
    const QString code = codeOf(codes, grid, 0, row);
    const Row texts = textsFrom(grid, 1, row);
    rows << code;
    shown.erase({date, code});
    if (!texts[0].isEmpty()) shown[{date, code}] = planRow(date, code, texts);
  }
  Plan stored;
  for (const Row& row : tables.at(u"JH"_qs)) {
    if (row[0] == date && rows.contains(row[1])) addStored(stored, row);
  }
  return {u"JH"_qs, date, true, rowsOfPlan(shown), rowsOfPlan(stored)};
}

// A place that another activity holds is never stored, and the user is told.
Shown activityPlan(const PlannerWindow& window, const Tables& tables) {
  const GridSurface& grid = *gridOf(window);
  const QString activity = listedActivity(window);
  Shown all{u"JH"_qs, activity, true, {}, {}};
  Plan shown, stored;
  std::set<std::pair<QString, QString>> taken;
  for (const Row& row : tables.at(u"JH"_qs)) {
    if (row[2] == activity) {
      addStored(stored, row);
    } else {
      taken.emplace(row[0], row[1]);
    }
  }
  const auto codes = codesByText(tables);
  for (int row = 0; row < grid.Rows(); ++row) {
    const QString code = codeOf(codes, grid, 1, row);
    const Row texts = textsFrom(grid, 2, row);
    const QString cell = lines(grid.GetCellText(0, row));
    if (code.isEmpty() || texts[0] != activity || cell.trimmed().isEmpty()) continue;
    auto date = dateRead(cell.section(u'\n', 0, 0));
    if (!date) date = dateRead(cell.trimmed().left(10));
    if (!date) all.canBeSaved = false;
    if (date) shown[{isoDate(*date), code}] = planRow(isoDate(*date), code, texts);
  }
  for (const auto& place : taken) {
    shown.erase(place);
    stored.erase(place);
  }
  all.rows = rowsOfPlan(shown);
  all.stored = rowsOfPlan(stored);
  return all;
}

Rows rowsComplete(const GridSurface& grid) {
  Rows rows;
  for (int row = 0; row < grid.Rows(); ++row) {
    Row cells;
    for (int col = 0; col < grid.Cols(); ++col) cells << grid.GetCellText(col, row);
    if (!cells.contains(QString())) rows << cells;
  }
  return rows;
}

Shown timeBlocks(const PlannerWindow& window, const Tables& tables) {
  Shown all{u"SJ"_qs, {}, true, {}, sorted(tables.at(u"SJ"_qs))};
  for (const Row& cells : rowsComplete(*gridOf(window))) {
    const auto start = timeRead(cells[0]);
    const auto end = timeRead(cells[1]);
    if (!start || !end) all.canBeSaved = false;
    if (start && end) {
      all.rows << Row{cells[2], cells[3], start->toString(u"HH:mm:ss"), end->toString(u"HH:mm:ss")};
    }
  }
  all.rows = sorted(all.rows);
  return all;
}

Shown weekNames(const PlannerWindow& window, const Tables& tables) {
  Shown all{u"MM"_qs, {}, true, {}, sorted(tables.at(u"MM"_qs))};
  for (const Row& cells : rowsComplete(*gridOf(window))) {
    const auto first = dateRead(cells[0]);
    const auto last = dateRead(cells[1]);
    if (!first || !last) all.canBeSaved = false;
    if (first && last) all.rows << Row{isoDate(*first), isoDate(*last), cells[2]};
  }
  all.rows = sorted(all.rows);
  return all;
}

// An empty memo is as good as none.
Shown memo(const PlannerWindow& window, const Tables& tables) {
  const QString date = isoDate(dateInTitle(window));
  Shown all{u"BW"_qs, date, true, {}, {}};
  const QString text = lines(textIn(window, u"Text1"_qs));
  if (!text.isEmpty()) all.rows << Row{date, text};
  for (const Row& row : tables.at(u"BW"_qs)) {
    if (row[0] == date && !row[1].isEmpty()) all.stored << Row{date, lines(row[1])};
  }
  all.stored = sorted(all.stored);
  return all;
}

// The item in the fields; it is stored alone, so that the rest of the catalogue does not count.
Shown item(const PlannerWindow& window) {
  Shown all{u"HD"_qs, {}, true, {}, {}};
  const auto oneLine = [&](const QString& field) {
    return lines(textIn(window, field)).replace(u'\n', u' ').trimmed();
  };
  const QString code = oneLine(u"TxtHDBH"_qs);
  const QString name = oneLine(u"txtHDMC"_qs);
  const QString category = textIn(window, u"Combo1"_qs);
  if (!code.isEmpty() && !name.isEmpty()) all.rows << Row{code, name, category};
  return all;
}

}  // namespace

std::optional<QDate> dateRead(const QString& text) {
  static const QRegularExpression kDate(u"^(\\d{4})[-/.年]?(\\d{1,2})[-/.月]?(\\d{1,2})日?$"_qs);
  const auto match = kDate.match(narrow(text));
  const QDate date(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
  return match.hasMatch() && date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> timeRead(const QString& text) {
  static const QRegularExpression kTime(u"^(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?$"_qs);
  const auto match = kTime.match(narrow(text));
  const QTime time(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
  return match.hasMatch() && time.isValid() ? std::optional(time) : std::nullopt;
}

QDate dateInTitle(const PlannerWindow& window) {
  static const QRegularExpression kLongDate(u"(\\d+)年(\\d+)月(\\d+)日"_qs);
  const auto match = kLongDate.match(window.windowTitle());
  return {match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
}

QString listedActivity(const PlannerWindow& window) {
  return window.windowTitle().section(u"项目活动计划  "_qs, 1);
}

Shown shownIn(const PlannerWindow& window, const Tables& tables) {
  const QString kind = kindOf(window);
  if (kind == u"DailyPlanWindow"_qs) return dailyPlan(window, tables);
  if (kind == u"ActivityPlanWindow"_qs) return activityPlan(window, tables);
  if (kind == u"TimeBlockEditor"_qs) return timeBlocks(window, tables);
  if (kind == u"WeekNameEditor"_qs) return weekNames(window, tables);
  if (kind == u"MemoWindow"_qs) return memo(window, tables);
  if (kind == u"ActivityItemEditor"_qs) return item(window);
  return {};
}

}  // namespace vellora::test
