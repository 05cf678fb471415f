#include "editors/memo_window.h"

#include "grid/surface/cell_editor.h"
#include "schedule/memos.h"
#include "shell/controls.h"
#include "shell/date_stepper.h"
#include "store/store_error.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vellora {
namespace {

QPlainTextEdit* makeTextBox(QWidget* parent) {
  auto* box = named(new PlainTextBox(parent), u"Text1"_qs, u"备忘内容"_qs);
  box->setFont(QFont(u"楷体_GB2312"_qs, 12));
  box->setTabChangesFocus(true);
  box->setPlaceholderText(u"这一天还没有备忘，可以写在这里。"_qs);
  return box;
}

// Laying out one endless line would stall the window at every key.
void requireShowable(const QString& text) {
  constexpr qsizetype kLongestLine = 100'000;
  for (const QStringView line : QStringView(text).split(u'\n')) {
    if (line.size() <= kLongestLine) continue;
    throw StoreError(StoreFault::TextTooLong,
                     u"这条备忘有一行超过 %1 个字，不能在这里显示和修改。"_qs.arg(kLongestLine));
  }
}

}  // namespace

MemoWindow::MemoWindow(ApplicationState& state, QWidget* parent)
    : EditedWindow(state, parent),
      days_(makeArrowStepper({u"D1"_qs, u"Lxq"_qs, u"备忘日期"_qs}, state.clock, this)),
      text_(makeTextBox(this)),
      update_(makeButton(u"CmdSV"_qs, u"更新(&U) "_qs, this, [this] { save(); })) {
  setObjectName(u"FormBWL"_qs);
  setWindowTitle(u"备忘录"_qs);
  update_->setFocusPolicy(Qt::TabFocus);  // a click must not turn to a typed date before it stores
  layOut();
  connect(days_, &DateStepper::dateChanged, this, &MemoWindow::showDay);
  connect(text_, &QPlainTextEdit::textChanged, this, &MemoWindow::updateChanges);
}

void MemoWindow::layOut() {
  auto* top = new QHBoxLayout;
  top->addWidget(days_);
  top->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(update_);
  buttons->addWidget(makeButton(u"CmdEND"_qs, u"关闭(&Q) "_qs, this, [this] { close(); }));
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addWidget(text_, 1);
  all->addWidget(editStatus(text_));
  all->addLayout(buttons);
  resize(520, 400);
}

void MemoWindow::onLoad() {
  const QSignalBlocker onceIsEnough(days_);
  days_->setDate(state().clock.today());
  ShowMemo(true);
  if (isRead()) text_->setFocus();
}

void MemoWindow::setDate(QDate day) {
  days_->setDate(day);
}

void MemoWindow::showDay() {
  if (isRead() && isChanged()) keepDiscardedText();
  ShowMemo();
}

void MemoWindow::ShowMemo(bool quietly) {
  const QDate day = days_->date();
  forget();
  setWindowTitle(memoCaption(day));
  text_->clear();
  read(
      [&] {
        shown_ = memoOf(state().Db, day);
        requireShowable(shown_);
        shown_day_ = day;
        text_->setPlainText(shown_);
      },
      quietly);
}

void MemoWindow::keepDiscardedText() {
  keepDiscarded([this, day = shown_day_, text = typedText()] {
    day == days_->date() ? showDay() : days_->setDate(day);
    if (!isRead() || shown_day_ != day) return false;
    text_->selectAll();
    text_->insertPlainText(text);
    return true;
  });
}

// No text typed for one date may end up over the memo of another.
void MemoWindow::setTypable(bool on) {
  text_->setEnabled(on);
  update_->setEnabled(on);
}

// What was not touched stays as it is, whatever signs a text box cannot show.
QString MemoWindow::typedText() const {
  return text_->document()->isModified() ? memoText(text_->document()->toRawText(), shown_)
                                         : shown_;
}

Changes MemoWindow::changes() {
  Changes changes;
  if (text_->document()->isModified()) changes.other = u"备忘内容还没有更新"_qs;
  return changes;
}

bool MemoWindow::save() {
  const QString text = typedText();
  try {
    if (!saveAsking([&](bool overwrite) {
          storeMemo(state().Db, shown_day_, text, overwrite ? nullptr : &shown_);
        })) {
      return false;
    }
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
    return false;
  }
  shown_ = text;
  text_->document()->setModified(false);
  updateChanges();
  days_->finishTyping();
  return true;
}

}  // namespace vellora
