#include "shell/edited_window.h"

#include "grid/surface/grid_surface.h"
#include "shell/controls.h"
#include "shell/status_line.h"
#include "store/store_error.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>

namespace vellora {
namespace {

constexpr std::size_t kMostDiscarded = 20;

}  // namespace

EditedWindow::EditedWindow(ApplicationState& state, QWidget* parent)
    : PlannerWindow(state, parent), status_(makeStatus()) {
  later_.setSingleShot(true);
  connect(&later_, &QTimer::timeout, this, &EditedWindow::updateChanges);
}

// Keeps a line's room, so that the first change does not move what stands above it.
QWidget* EditedWindow::makeStatus() {
  auto* status = new QWidget(this);
  auto* row = new QHBoxLayout(status);
  row->setContentsMargins({});
  text_ = new StatusLine(status);
  text_->setObjectName(u"EditStatus"_qs);
  row->addWidget(text_, 1);
  row->addStretch();
  const auto add = [&](const QString& name, const QString& caption, auto act) {
    auto* button = makeButton(name, caption, status, act);
    button->hide();
    row->addWidget(button);
    return button;
  };
  refresh_ = add(u"CmdRefresh"_qs, u"刷新"_qs, [this] { readAgain(); });
  fetch_ = add(u"CmdFetch"_qs, u"找回"_qs, [this] { bringBack(); });
  fetch_->setToolTip(u"找回刚才没有保存就离开的内容"_qs);
  status->setMinimumHeight(fetch_->sizeHint().height());
  return status;
}

QWidget* EditedWindow::editStatus(QWidget* before) {
  setTabOrder(before, refresh_);
  setTabOrder(refresh_, fetch_);
  return status_;
}

bool EditedWindow::read(const std::function<void()>& reading, bool quietly) {
  try {
    reading();
  } catch (const StoreError& error) {
    if (!is_read_) {
      reason_ = error.description();
      forget();
    }
    if (!quietly) prompts().warn(this, error.description());
    return false;
  }
  is_read_ = true;
  reason_.clear();
  setTypable(true);
  updateChanges();
  return true;
}

void EditedWindow::forget() {
  is_read_ = false;
  changes_ = {};
  setTypable(false);
  showStatus();
}

void EditedWindow::updateChanges() {
  later_.stop();
  if (!is_read_) return;
  changes_ = changes();
  showStatus();
}

bool EditedWindow::isChanged() {
  updateChanges();
  return changes_.any();
}

void EditedWindow::watch(GridSurface& grid) {
  grid_ = &grid;
  const auto* model = grid.model();
  const auto start = [this] {
    if (!later_.isActive()) later_.start(0);
  };
  connect(model, &QAbstractItemModel::dataChanged, this, start);
  connect(model, &QAbstractItemModel::rowsInserted, this, start);
  connect(model, &QAbstractItemModel::rowsRemoved, this, start);
  connect(model, &QAbstractItemModel::modelReset, this, start);
}

void EditedWindow::showStatus() {
  if (grid_) {
    std::vector<RowMark> marks;
    for (const Changes::Row& row : changes_.rows) {
      const QString meaning = row.why.isEmpty() ? u"未保存"_qs : u"不会保存：这一行"_qs + row.why;
      if (row.isTyped) marks.push_back({row.row, meaning});
    }
    grid_->markRows(std::move(marks));
  }
  const QString text = is_read_ || reason_.isEmpty()
                           ? changes_.text()
                           : u"没有读出来："_qs + reason_ + u"请按“刷新”再试。";
  if (text != text_->text()) text_->showMessage(text);
  refresh_->setVisible(!is_read_ && !reason_.isEmpty());
  fetch_->setVisible(!discarded_.empty());
}

void EditedWindow::keepDiscarded(const std::function<bool()>& bringBack) {
  if (discarded_.size() == kMostDiscarded) discarded_.erase(discarded_.begin());
  discarded_.push_back(bringBack);
  showStatus();
}

// What is shown now may be discarded by that, and is kept in turn.
void EditedWindow::bringBack() {
  const auto last = discarded_.back();
  discarded_.pop_back();
  if (!last()) discarded_.push_back(last);
  updateChanges();
  showStatus();
}

bool EditedWindow::saveAsking(const std::function<void(bool overwrite)>& saving) {
  for (bool overwrite = false;; overwrite = true) {
    try {
      saving(overwrite);
      return true;
    } catch (const StoreError& error) {
      if (error.fault() == StoreFault::SavedDespiteError) {
        prompts().warn(this, error.description());
        readAgain();
        return false;
      }
      if (error.fault() != StoreFault::RowChanged || overwrite) throw;
    }
    if (!overwritesByChoice()) return false;
  }
}

bool EditedWindow::overwritesByChoice() {
  enum Answer { Overwrite, ReadAgain, Cancel };
  const int answer = prompts().choose(
      this, u"打开之后，另一个程序已经改动了这里要保存的内容。要用现在的内容覆盖它吗？"_qs,
      {u"覆盖"_qs, u"重新读出"_qs, u"取消"_qs}, Cancel);
  if (answer == ReadAgain) readAgain();
  if (answer == Cancel) updateChanges();
  return answer == Overwrite;
}

bool EditedWindow::mayClose() {
  enum Answer { Save, Discard, Cancel };
  if (is_asking_) return false;
  const QScopedValueRollback asking(is_asking_, true);
  finishTyping();
  if (!is_read_ || !isChanged()) return true;
  const int answer = prompts().choose(this, changes_.text() + u"。\n要在关闭前保存吗？",
                                      {u"保存"_qs, u"不保存"_qs, u"取消"_qs}, Save);
  return answer == Discard || (answer == Save && save());
}

void EditedWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F5 && !is_read_) return readAgain();
  PlannerWindow::keyPressEvent(event);
}

}  // namespace vellora
