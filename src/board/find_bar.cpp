#include "board/find_bar.h"

#include "board/plan_dialogs.h"
#include "routine/calendar_text.h"
#include "shell/controls.h"
#include "store/store_error.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>
#include <tuple>

namespace vellora {
namespace {

constexpr std::chrono::milliseconds kSlice(15);
constexpr std::size_t kMostHits = 1'000;
constexpr int kShownHits = 5;

bool isBefore(const SearchHit& one, const SearchHit& other) {
  return std::tie(one.day, one.code) < std::tie(other.day, other.code);
}

}  // namespace

FindBar::FindBar(ScheduleStore& store, QWidget* parent)
    : QWidget(parent),
      store_(store),
      text_(named(new QLineEdit(this), u"FindText"_qs, u"查找"_qs)),
      count_(named(new QLabel(this), u"FindCount"_qs)),
      list_(named(new QListWidget(this), u"FindHits"_qs, u"查找结果"_qs)) {
  layOut();
  text_->installEventFilter(this);
  list_->installEventFilter(this);
  connect(text_, &QLineEdit::textChanged, this, &FindBar::search);
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0) emit goTo(hits_[static_cast<std::size_t>(row)]);
  });
  connect(&slices_, &QTimer::timeout, this, &FindBar::searchOn);
  hide();
}

void FindBar::layOut() {
  text_->setPlaceholderText(u"查找活动、要求、备忘和每周命名"_qs);
  text_->setClearButtonEnabled(true);
  auto* line = new QHBoxLayout;
  line->addWidget(text_, 1);
  line->addWidget(makeButton(u"FindPrevious"_qs, u"上一处"_qs, this, [this] { step(-1); }));
  line->addWidget(makeButton(u"FindNext"_qs, u"下一处"_qs, this, [this] { step(1); }));
  line->addWidget(count_);
  line->addWidget(makeButton(u"FindClose"_qs, u"关闭查找"_qs, this, [this] { closeBar(); }));
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins({});
  all->addLayout(line);
  all->addWidget(list_);
  list_->setFixedHeight(kShownHits * list_->fontMetrics().lineSpacing() * 3 / 2);
}

void FindBar::open(QDate from) {
  from_ = from;
  QWidget::show();
  text_->setFocus(Qt::ShortcutFocusReason);
  text_->selectAll();
  search();
}

void FindBar::closeBar() {
  slices_.stop();
  search_.reset();
  hide();
  emit closed();
}

// What was looked for before is given up.
void FindBar::search() {
  const QSignalBlocker emptied(list_);
  list_->clear();
  hits_.clear();
  search_.reset();
  slices_.stop();
  if (text_->text().isEmpty()) return showCount();
  try {
    blocks_ = TimeBlockList(store_);
    search_ = std::make_unique<PlanSearch>(store_, text_->text(), from_);
    slices_.start(0);
    searchOn();
  } catch (const StoreError& error) {
    showCount(error.description());
  }
}

void FindBar::searchOn() {
  try {
    if (search_) list(search_->next(kSlice));
  } catch (const StoreError& error) {
    search_.reset();
    slices_.stop();
    return showCount(error.description());
  }
  if (!search_ || search_->isOver() || hits_.size() >= kMostHits) {
    slices_.stop();
    search_.reset();
  }
  showCount();
}

// Among those that are listed already, by day.
void FindBar::list(std::vector<SearchHit> found) {
  const QSignalBlocker ownRows(list_);
  for (SearchHit& hit : found) {
    if (hits_.size() == kMostHits) return;
    const auto at = std::upper_bound(hits_.begin(), hits_.end(), hit, isBefore);
    const int row = static_cast<int>(at - hits_.begin());
    const QString place = hit.code.isEmpty() ? weekdayName(hit.day)
                                             : placeText({hit.day, hit.code}, blocks_, hit.day);
    list_->insertItem(row, isoDate(hit.day) + u' ' + place + u"  " + hit.text.simplified());
    hits_.insert(at, std::move(hit));
  }
}

void FindBar::showHit(std::size_t hit) {
  const int row = static_cast<int>(hit);
  if (list_->currentRow() == row) return emit goTo(hits_[hit]);
  list_->setCurrentRow(row);
}

// From the hit that is chosen, else from the shown date on, round the end.
void FindBar::step(int by) {
  if (hits_.empty()) return;
  const auto count = static_cast<int>(hits_.size());
  int row = list_->currentRow();
  if (row < 0) {
    const auto first =
        std::find_if(hits_.begin(), hits_.end(), [this](auto& hit) { return hit.day >= from_; });
    row = static_cast<int>(first - hits_.begin()) - (by > 0 ? 1 : 0);
  }
  showHit(static_cast<std::size_t>((row + by + count) % count));
}

void FindBar::showCount(const QString& trouble) {
  const bool isMore = hits_.size() >= kMostHits;
  const QString count = isMore ? u"多于 %1 处"_qs.arg(kMostHits) : u"共 %1 处"_qs.arg(hits_.size());
  count_->setText(!trouble.isEmpty() ? trouble : text_->text().isEmpty() ? QString() : count);
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() == Qt::Key_Escape) return closeBar(), true;
  if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) {
    return QWidget::eventFilter(watched, event);
  }
  step(key.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
  return true;
}

}  // namespace vellora
