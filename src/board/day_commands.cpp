// What PlanCommands do with whole days and weeks.

#include "board/plan_commands.h"
#include "board/plan_dialogs.h"
#include "routine/calendar_text.h"
#include "shell/application_state.h"

namespace vellora {
namespace {

constexpr int kLastDayOfWeek = kDaysInAWeek - 1;

}  // namespace

void PlanCommands::openDay() {
  board_.openDay(currentDay());
}

void PlanCommands::openMemo() {
  board_.openMemo(currentDay());
}

void PlanCommands::copyDay() {
  guarded([this] {
    const QDate day = currentDay();
    const auto to =
        askDate(board_.window, board_.state.clock, u"复制这一天到"_qs, day.addDays(kDaysInAWeek));
    if (!to) return;
    carryOut(u"复制 "_qs + isoDate(day),
             shifted(plannedBlocks(store(), day, day), day.daysTo(*to), true),
             u"已把 %1 的安排复制到 %2"_qs.arg(isoDate(day), isoDate(*to)));
  });
}

void PlanCommands::clearDay() {
  guarded([this] {
    const QDate day = currentDay();
    const auto blocks = plannedBlocks(store(), day, day);
    carryOut(u"清空 "_qs + isoDate(day), cancelled(blocks),
             u"已清空 %1 的 %2 项安排，按 Ctrl+Z 可以撤消"_qs.arg(isoDate(day)).arg(blocks.size()));
  });
}

void PlanCommands::copyWeek() {
  guarded([this] {
    const QDate first = board_.firstDay();
    const auto blocks = plannedBlocks(store(), first, first.addDays(kLastDayOfWeek));
    const auto weeks = askWeeks(board_.window, u"复制本周"_qs);
    if (!weeks) return;
    const PlanMoves moves = repeatedWeekly(blocks, *weeks);
    carryOut(u"复制本周"_qs, moves,
             u"将把本周的 %1 项安排复制到以后的 %2 周，一共 %3 项。"_qs.arg(blocks.size())
                 .arg(*weeks)
                 .arg(moves.size()),
             true);
  });
}

void PlanCommands::copyWeekTo() {
  guarded([this] {
    const QDate first = firstDay();
    const auto to =
        askDate(board_.window, board_.state.clock, u"复制本周到"_qs, first.addDays(kDaysInAWeek));
    if (!to) return;
    const auto blocks = plannedBlocks(store(), first, first.addDays(kLastDayOfWeek));
    carryOut(u"复制本周"_qs, shifted(blocks, first.daysTo(*to), true),
             u"将把本周的 %1 项安排复制到从 %2 起的七天。"_qs.arg(QString::number(blocks.size()),
                                                                  isoDate(*to)),
             true);
  });
}

void PlanCommands::clearWeek() {
  guarded([this] {
    const QDate first = board_.firstDay();
    const auto blocks = plannedBlocks(store(), first, first.addDays(kLastDayOfWeek));
    carryOut(u"清空本周"_qs, cancelled(blocks), u"将取消本周的 %1 项安排。"_qs.arg(blocks.size()),
             true);
  });
}

void PlanCommands::postpone() {
  guarded([this] {
    const auto blocks = plannedBlocks(store(), board_.firstDay(), kLastDay);
    carryOut(u"顺延一周"_qs, shifted(blocks, kDaysInAWeek, false),
             u"从 %1 起的 %2 项安排将全部推后七天。"_qs.arg(isoDate(board_.firstDay()))
                 .arg(blocks.size()),
             true);
  });
}

}  // namespace vellora
