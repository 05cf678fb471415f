#include "random_user/checks.h"

#include "grid/surface/grid_surface.h"
#include "random_user/screen.h"
#include "random_user/shown.h"

namespace vellora::test {
namespace {

// The window in front whose cells can be compared now.
PlannerWindow* windowAtRest() {
  auto* window = windowInHand();
  const auto* grid = window && window == front() ? gridOf(*window) : nullptr;
  return grid && grid->hasFocus() && !openCell(*window) ? window : nullptr;
}

QString kindInHand() {
  const auto* window = windowInHand();
  return window ? kindOf(*window) : QString();
}

// A day that the window writes into an empty date cell when it is opened stays there.
bool isProposedDate(const QString& before, const QString& after) {
  return before.section(u'|', 0, 0).isEmpty() && dateRead(after.section(u'|', 0, 0)) &&
         before.section(u'|', 1).remove(u'|') == after.section(u'|', 1).remove(u'|');
}

// So does the name that a week takes over when its row is entered.
bool isCarriedName(const QString& before, const QString& after) {
  return kindInHand() == u"WeekNameEditor"_qs && before.section(u'|', 2).isEmpty() &&
         before.section(u'|', 0, 1).remove(u'|') == after.section(u'|', 0, 1).remove(u'|');
}

}  // namespace

QStringList Checks::Notes::changes() const {
  QStringList changed;
  if (!window || window != windowInHand()) return changed;
  const QStringList now = rowsOf(*gridOf(*window));
  for (qsizetype i = 0; i < std::max(rows.size(), now.size()); ++i) {
    const QString before = rows.value(i), after = now.value(i);
    if (before == after || isProposedDate(before, after) || isCarriedName(before, after)) continue;
    changed << before + u" → "_qs + after;
  }
  return changed;
}

void Checks::noteCells() {
  script_.add(u"note the cells"_qs, false, [notes = notes_] {
    notes->window = windowAtRest();
    if (notes->window) notes->rows = rowsOf(*gridOf(*notes->window));
  });
}

void Checks::undo() {
  script_.add(u"key Ctrl+Z"_qs, false, [notes = notes_, &hands = script_.hands] {
    notes->edit = notes->changes();
    if (notes->edit.size() != 1) return;
    hands.pressKey(Qt::Key_Z, Qt::ControlModifier);
    hands.releaseKey(Qt::Key_Z, Qt::ControlModifier);
  });
}

void Checks::compareCells(const QString& fault, bool afterUndo) {
  script_.add(u"compare the cells"_qs, false, [=, notes = notes_, tell = tell_] {
    const QStringList changed = notes->changes();
    if (changed.isEmpty() || (afterUndo && notes->edit.size() != 1)) return;
    tell(kindInHand() + fault, notes->edit.join(u' ') + u" left "_qs + changed.join(u"; "_qs));
  });
}

QString Checks::noteDate() {
  const auto* window = windowInHand();
  for (const QString& name : {u"D1"_qs, u"DTP1"_qs}) {
    if (controlNamed(*window, name)) notes_->picker = name;
  }
  notes_->date = textIn(*window, notes_->picker);
  return notes_->picker;
}

void Checks::noteHand() {
  script_.add(u"see whether a box has come up"_qs, false,
              [notes = notes_] { notes->isInHand = windowInHand() && windowInHand() == front(); });
}

// What is no date moves nothing, and may stay there marked. Blanks may make it one.
void Checks::compareDate(const QString& fault, bool isTaken) {
  script_.add(
      u"look at the date"_qs, false, [=, notes = notes_, tell = tell_, kind = kindInHand()] {
        const auto* window = windowInHand();
        if (!window || window != front() || kindOf(*window) != kind || !notes->isInHand) return;
        const QString shown = textIn(*window, notes->picker);
        const auto typed = isTaken ? dateRead(notes->typed) : std::nullopt;
        // What Escape takes back may have been begun before.
        const auto left = dateRead(notes->typed);
        const auto before = dateRead(notes->date);
        const bool isKept = before && left && dateRead(shown) == left && before != left;
        const bool isRight = typed ? dateRead(shown) == typed : dateRead(shown) && !isKept;
        const bool hasBlanks = notes->typed != notes->typed.trimmed();
        if (isRight || (isTaken && !typed && !dateRead(shown))) return;
        if (hasBlanks && shown == notes->date) return;
        tell(kind + fault, u"%1, typed “%2”, shows %3"_qs.arg(notes->date, notes->typed, shown));
      });
}

}  // namespace vellora::test
