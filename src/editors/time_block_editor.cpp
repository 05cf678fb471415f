#include "editors/time_block_editor.h"

#include "grid/surface/grid_surface.h"
#include "routine/text.h"
#include "shell/controls.h"
#include "shell/form_dialog.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace vellora {
namespace {

constexpr const char16_t* kTypingRules[][2]{
    {u"请按 hh:ss 格式填写", u"开始与结束时间。"},
    {u"时间块编号用最多三", u"位字母或数字表示。"},
    {u"时间块名称用最多10", u"个汉字表示。"},
};

QWidget* makeTypingRules() {
  auto* rules = new QWidget;
  auto* lines = new QVBoxLayout(rules);
  lines->setContentsMargins({});
  for (const auto& [start, end] : kTypingRules) {
    auto* line = new QHBoxLayout;
    line->setSpacing(0);
    line->addWidget(new QLabel(QString::fromUtf16(start), rules));
    line->addWidget(new QLabel(QString::fromUtf16(end), rules), 1);
    lines->addLayout(line);
  }
  return rules;
}

TableEditor::Kind timeBlockKind() {
  return {u"TimeBlockEditor"_qs,
          u"作息时间划分"_qs,
          u"时间块表"_qs,
          u"时间划分"_qs,
          u"还没有时间块：每行填写一个的开始、结束、编号和名称，再按“保存”。"_qs,
          QSize(500, 620),
          setUpTimeBlocks,
          LoadTimeBlocks,
          nullptr,
          timeBlockChanges};
}

}  // namespace

TimeBlockEditor::TimeBlockEditor(ApplicationState& state, QWidget* parent)
    : TableEditor(state, timeBlockKind(), nullptr, makeTypingRules(), parent) {}

bool TimeBlockEditor::save() {
  enum Answer { Move, Save, Cancel };
  finishTyping();
  std::vector<LostBlock> lost;
  try {
    lost = blocksLostBy(state().Db, grid().sheet(), stored());
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
    return false;
  }
  new_codes_.clear();
  if (lost.empty()) return TableEditor::save();
  QStringList counts;
  for (const LostBlock& block : lost) {
    counts << u"编号%1的 %2 条"_qs.arg(quoted(block.code), QString::number(block.plans));
  }
  QStringList answers{u"把计划改到…"_qs, u"仍然保存"_qs, u"取消"_qs};
  const bool isLeftNone = completeBlocks(grid().sheet()).empty();
  if (isLeftNone) answers.removeFirst();
  const int answer =
      prompts().choose(this, u"保存后有些计划会没有时间块："_qs + counts.join(u'，') + u'。',
                       answers, static_cast<int>(answers.size()) - 1) +
      (isLeftNone ? Save : Move);
  if (answer == Cancel || (answer == Move && !asksWhere(lost))) return false;
  return TableEditor::save();
}

// One of the remaining blocks for each that goes. False when the user cancels.
bool TimeBlockEditor::asksWhere(const std::vector<LostBlock>& lost) {
  FormDialog dialog(this, u"把计划改到"_qs);
  std::vector<QComboBox*> boxes;
  for (const LostBlock& block : lost) {
    auto* box = named(new QComboBox(&dialog), u"NewBlock%1"_qs.arg(boxes.size()));
    for (const auto& [code, line] : completeBlocks(grid().sheet())) box->addItem(line, code);
    dialog.add(u"%1 的 %2 条计划"_qs.arg(block.code, QString::number(block.plans)), box);
    boxes.push_back(box);
  }
  if (!dialog.isAccepted()) return false;
  for (std::size_t i = 0; i < lost.size(); ++i) {
    new_codes_[lost[i].code] = boxes[i]->currentData().toString();
  }
  return true;
}

TableRows TimeBlockEditor::write(const TableRows* asRead) {
  return SaveTimeBlocks(state().Db, grid().sheet(), asRead, new_codes_);
}

}  // namespace vellora
