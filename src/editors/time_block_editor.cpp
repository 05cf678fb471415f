#include "editors/time_block_editor.h"

#include "schedule/time_blocks.h"

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
  return {u"TimeBlockEditor"_qs, u"作息时间划分"_qs, u"时间块表"_qs,
          u"时间划分"_qs,        QSize(500, 620),    setUpTimeBlocks,
          LoadTimeBlocks,        SaveTimeBlocks,     timeBlockChanges};
}

}  // namespace

TimeBlockEditor::TimeBlockEditor(ApplicationState& state, QWidget* parent)
    : TableEditor(state, timeBlockKind(), nullptr, makeTypingRules(), parent) {}

}  // namespace vellora
