#include "random_user/witness.h"

#include "grid/surface/grid_surface.h"
#include "random_user/screen.h"
#include "shell/planner_window.h"

#include <QMessageBox>

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>

namespace vellora::test {
namespace {

// The rows of one list that are not in the other one, each as often as it is missing.
Rows missingFrom(const Rows& list, const Rows& other) {
  std::map<Row, int> left;
  for (const Row& row : other) ++left[row];
  Rows missing;
  for (const Row& row : list) {
    if (left[row]-- <= 0) missing << row;
  }
  return missing;
}
QString written(const Rows& rows) {
  QStringList texts;
  for (const Row& row : rows.first(std::min<qsizetype>(rows.size(), 3))) texts << row.join(u',');
  return QString(u"%1["_qs.arg(rows.size()) + texts.join(u"; "_qs) + u']')
      .replace(u'\n', u'/')
      .replace(u'\r', u'/');
}

Row selectedItem(const PlannerWindow& window) {
  const GridSurface& grid = *gridOf(window);
  const int row = grid.CurrentRow();
  if (row < 0) return {};
  return {grid.GetCellText(0, row).trimmed(), grid.GetCellText(1, row).trimmed()};
}

Row itemInFields(const Shown& shown) {
  return shown.rows.isEmpty() ? Row() : shown.rows.first();
}

bool savesOnItsOwn(const QString& kind) {
  return kind == u"DailyPlanWindow"_qs || kind == u"ActivityPlanWindow"_qs ||
         kind == u"TimeBlockEditor"_qs || kind == u"WeekNameEditor"_qs;
}

// Only what was read can be changed.
bool saysChanged(const PlannerWindow& window) {
  return textIn(window, u"EditStatus"_qs).contains(u"没有保存") ||
         textIn(window, u"EditStatus"_qs).contains(u"保存后删除");
}

bool hasEveryTime(const GridSurface& grid) {
  for (int row = 0; row < grid.Rows(); ++row) {
    if (grid.GetCellText(0, row).isEmpty()) return false;
  }
  return grid.Rows() > 0;
}

}  // namespace

TableReader::TableReader(const QString& path)
    : database_(path.toStdString(), SQLite::OPEN_READONLY) {
  readChanges();
}

bool TableReader::readChanges() {
  try {
    const int version = database_.execAndGet("PRAGMA data_version").getInt();
    if (version == version_) return false;
    Tables read;
    for (const auto& table : {u"HD"_qs, u"SJ"_qs, u"JH"_qs, u"BW"_qs, u"MM"_qs, u"JM"_qs}) {
      read[table] = rowsOf(table);
    }
    version_ = version;
    tables_ = read;
    return true;
  } catch (const SQLite::Exception&) {
    return false;  // locked: what is written meanwhile is seen afterwards
  }
}

Rows TableReader::rowsOf(const QString& table) {
  Rows rows;
  SQLite::Statement all(database_, "SELECT * FROM " + table.toStdString() + " ORDER BY rowid");
  while (all.executeStep()) {
    Row row;
    for (int col = 0; col < all.getColumnCount(); ++col) {
      row << QString::fromStdString(all.getColumn(col).getString());
    }
    rows << row;
  }
  return rows;
}

Witness::Witness(const QString& schedule, Tell tell) : reader_(schedule), tell_(std::move(tell)) {}

void Witness::fault(const QString& what, const QString& details) const {
  tell_(before_.kind + u": "_qs + what, details);
}

void Witness::lookAway() {
  if (reader_.readChanges()) desk_.isDisturbed = true;
}

void Witness::forget() {
  lookAway();
  desk_ = {};
  before_ = {};
}

void Witness::lookBefore(bool mayWrite) {
  before_ = {};
  before_.window = windowInHand();
  before_.front = front();
  before_.mayWrite = mayWrite;
  if (!before_.window) return;
  before_.wasBox = before_.front != before_.window;
  const auto* box = qobject_cast<QMessageBox*>(before_.front);
  before_.asksToDelete = box && box->text().startsWith(u"请认是否删除项目");
  before_.kind = kindOf(*before_.window);
  before_.shown = shownIn(*before_.window, reader_.tables());
  before_.named = textIn(*before_.window, u"Text2"_qs);
  if (before_.shown.table == u"HD"_qs) before_.item = selectedItem(*before_.window);
}

void Witness::lookAfter() {
  const Tables before = reader_.tables();
  if (reader_.readChanges()) lookAtTables(before);
  lookAtSaved();
  lookAtClosed();
  lookAtWindow();
}

bool Witness::isOwn(const QString& table, const Row& row) const {
  const QString& kind = before_.kind;
  // The board clears, and undoes what any window saved.
  if (kind == u"BackupWindow"_qs || kind == u"WeekBoard"_qs) return true;
  if (kind == u"AboutWindow"_qs) return table == u"JM"_qs;
  const bool takesPlansAlong = kind == u"ActivityItemEditor"_qs || kind == u"TimeBlockEditor"_qs;
  if (takesPlansAlong && table == u"JH"_qs) return true;
  if (table != before_.shown.table) return false;
  if (table == u"BW"_qs || kind == u"DailyPlanWindow"_qs) return row[0] == before_.shown.subject;
  const bool isDeleted = before_.asksToDelete && row[2] == before_.named;
  return kind != u"ActivityPlanWindow"_qs || row[2] == before_.shown.subject || isDeleted;
}

void Witness::lookAtTables(const Tables& before) {
  if (!before_.mayWrite && before_.kind != u"WeekBoard"_qs) {
    fault(u"something is stored that nobody asked for"_qs);
  }
  for (const auto& [table, rows] : reader_.tables()) {
    const Rows gone = missingFrom(before.at(table), rows);
    const Rows added = missingFrom(rows, before.at(table));
    for (const Row& row : gone + added) {
      if (isOwn(table, row)) continue;
      fault(u"rows change that are not its own"_qs, table + u' ' + written({row}));
      break;
    }
    if (table == u"HD"_qs && before_.shown.table == table) lookAtItems(gone, added);
    if (table != before_.shown.table || gone.isEmpty() || before_.asksToDelete) continue;
    if (desk_.isFresh) fault(u"what was never read is replaced"_qs, written(gone));
  }
}

// A change goes to the selected item, adding takes nothing away.
void Witness::lookAtItems(const Rows& gone, const Rows& added) const {
  if (gone.isEmpty() && added.isEmpty()) return;
  if (desk_.isDisturbed) return;
  const QString details = written(gone) + u" → "_qs + written(added) + u", selected "_qs +
                          before_.item.join(u',') + u", typed "_qs + written(before_.shown.rows);
  if (gone.size() > 1 || added.size() > 1) fault(u"more than one item changes"_qs, details);
  const Row old = gone.isEmpty() ? Row() : Row{gone[0][0].trimmed(), gone[0][1].trimmed()};
  // A typed code names the item that has it.
  const bool isNamed =
      !added.isEmpty() && !before_.item.isEmpty() && added[0][0] != before_.item[0];
  if (!old.isEmpty() && !before_.item.isEmpty() && old != before_.item && !isNamed) {
    fault(u"another item than the selected one changes"_qs, details);
  }
  if (!added.isEmpty() && added[0].first(3) != itemInFields(before_.shown)) {
    fault(u"an item is stored otherwise than its fields say"_qs, details);
  }
}

// A box says that everything is saved.
void Witness::lookAtSaved() {
  QWidget* box = front();
  const bool isNews = box && box != told_ && boxText(box).startsWith(u"保存完毕"_qs);
  told_ = box;
  const PlannerWindow* window = windowInHand();
  if (!isNews || !window) return;
  const Shown now = shownIn(*window, reader_.tables());
  if (now.isSaved()) return;
  const Rows lacking = missingFrom(now.rows, now.stored);
  const Rows surplus = missingFrom(now.stored, now.rows);
  fault(!now.canBeSaved      ? u"says that it saved what cannot be read"_qs
        : !lacking.isEmpty() ? u"says that it saved what is not stored"_qs
                             : u"saved what it does not show"_qs,
        u"lacks "_qs + written(lacking) + u", has "_qs + written(surplus));
}

void Witness::lookAtClosed() const {
  if (before_.kind.isEmpty() || before_.wasBox || before_.shown.table.isEmpty()) return;
  if (before_.window && before_.window->isVisible()) return;
  if (!desk_.isKnown || desk_.isDisturbed || !before_.shown.canBeSaved) return;
  if (before_.shown.rows == desk_.known) return;
  if (before_.shown.table == u"HD"_qs && before_.shown.rows.isEmpty()) return;  // nothing to store
  fault(u"closes without a question"_qs,
        u"unsaved "_qs + written(missingFrom(before_.shown.rows, desk_.known)) + u", missing "_qs +
            written(missingFrom(desk_.known, before_.shown.rows)));
}

void Witness::lookAtWindow() {
  PlannerWindow* window = windowInHand();
  if (!window) return;
  const Shown shown = shownIn(*window, reader_.tables());
  if (window != desk_.window || window->windowTitle() != desk_.title) {
    desk_ = {};
    desk_.window = window;
    desk_.title = window->windowTitle();
    // What was fetched back stands where the day was read just before.
    desk_.isFresh = savesOnItsOwn(kindOf(*window)) && shown.rows.isEmpty() && !saysChanged(*window);
    desk_.hasTimes = kindOf(*window) == u"DailyPlanWindow"_qs && hasEveryTime(*gridOf(*window));
  }
  const bool isBrowsed = shown.table == u"HD"_qs && !controlNamed(*window, u"cmdCancel"_qs);
  if (isBrowsed || (shown.table != u"HD"_qs && shown.isSaved())) {
    desk_.isFresh = false;
    desk_.isKnown = true;
    desk_.known = shown.rows;
  }
  if (desk_.hasTimes && !hasEveryTime(*gridOf(*window))) {
    desk_.hasTimes = false;
    fault(u"a time block loses its text"_qs);
  }
}

}  // namespace vellora::test
