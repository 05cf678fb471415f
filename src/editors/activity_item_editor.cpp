#include "editors/activity_item_editor.h"

#include "editors/category_legend.h"
#include "editors/item_fields.h"
#include "grid/surface/grid_surface.h"
#include "routine/category.h"
#include "routine/text.h"
#include "shell/controls.h"
#include "store/store_error.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vellora {
namespace {

constexpr int kControlGap = 8;  // pixels at 100 %
constexpr int kGroupGap = 18;
constexpr QSize kOpeningSize(760, 560);  // all columns, and twenty items

}  // namespace

ActivityItemEditor::ActivityItemEditor(ApplicationState& state, QWidget* parent)
    : EditedWindow(state, parent),
      catalogue_(state.Db),
      filter_(named(new QComboBox(this), u"Combo2"_qs)),
      refresh_(makeButton(u"CmdSX"_qs, u"刷新"_qs, this, [this] { filter(); })),
      grid_(named(new GridSurface(this), u"Cell1"_qs, u"活动项目"_qs)),
      fields_(new ItemFields(this)),
      store_(makeButton(u"cmdOK"_qs, u"确定(&U)"_qs, this, [this] { store(); })),
      cancel_(makeButton(u"cmdCancel"_qs, u"取消(&C)"_qs, this, [this] { cancel(); })),
      add_(makeButton(u"CmdNEW"_qs, u"添加(&N)"_qs, this, [this] { startNew(); })),
      delete_(makeButton(u"CmdDEL"_qs, u"删除(&D)"_qs, this, [this] { remove(); })),
      close_(makeButton(u"CmdEND"_qs, u"关闭(&Q) "_qs, this, [this] { close(); })) {
  nameControls();
  layOut();
  connectControls();
  answerGridKeys(*grid_, [] { return u"活动项目"_qs; });
}

void ActivityItemEditor::nameControls() {
  setObjectName(u"ActivityItemEditor"_qs);
  setWindowTitle(u"没置活动项目"_qs);
  filter_->addItem(allCategoriesLabel());
  for (const Category& category : categories()) filter_->addItem(category.label);
  grid_->setRowNumbersVisible(false);
  grid_->setEditable(false);
  grid_->setEmptyHint(u"这里还没有活动项目：请按“添加”。"_qs);
}

void ActivityItemEditor::layOut() {
  auto* all = new QHBoxLayout(this);
  all->addLayout(layOutList(), 1);
  all->setSpacing(kGroupGap);
  all->addLayout(layOutItem());
  resize(kOpeningSize);
}

QBoxLayout* ActivityItemEditor::layOutList() {
  auto* top = new QHBoxLayout;
  top->setSpacing(kControlGap);
  top->addWidget(makeLabel(u"活动项目分类"_qs, filter_));
  top->addWidget(filter_);
  top->addWidget(refresh_);
  top->addStretch();
  auto* list = new QVBoxLayout;
  list->setSpacing(kControlGap);
  list->addLayout(top);
  list->addWidget(grid_, 1);
  list->addWidget(statusLine());
  list->addWidget(editStatus(grid_));
  return list;
}

QBoxLayout* ActivityItemEditor::layOutItem() {
  auto* buttons = new QGridLayout;
  buttons->setSpacing(kControlGap);
  buttons->addWidget(store_, 0, 0);
  buttons->addWidget(cancel_, 0, 1);
  buttons->addWidget(add_, 1, 0);
  buttons->addWidget(delete_, 1, 1);
  auto* item = new QVBoxLayout;
  item->setSpacing(0);
  item->addWidget(fields_);
  item->addSpacing(kGroupGap);
  item->addLayout(buttons);
  item->addSpacing(kGroupGap);
  item->addWidget(new CategoryLegend(this));
  item->addStretch();
  item->addWidget(close_, 0, Qt::AlignRight);
  return item;
}

void ActivityItemEditor::connectControls() {
  connect(filter_, &QComboBox::activated, this, &ActivityItemEditor::filter);
  connect(grid_, &GridSurface::CellEntered, this, &ActivityItemEditor::changeRow);
  connect(grid_, &GridSurface::CellActivated, fields_, &ItemFields::focusCode);
  connect(fields_, &ItemFields::edited, this, [this] { apply(ItemEvent::FieldsChanged); });
  connect(fields_, &ItemFields::finished, this, [this] {
    if (store_->isEnabled()) store_->setFocus();
  });
}

void ActivityItemEditor::onActivate() {
  unsetCursor();
  setUpItemSheet(grid_->sheet());
  filter_->setCurrentIndex(0);
  filter();
}

void ActivityItemEditor::setTypable(bool on) {
  fields_->setEnabled(on);
  showButtons();
}

// A category that cannot be read leaves list and filter at the one that is shown.
void ActivityItemEditor::filter() {
  const QString category = filter_->currentText();
  if (!read([&] { catalogue_.filter(category, grid_->sheet()); })) {
    if (isRead()) filter_->setCurrentText(shown_category_);
    return;
  }
  shown_category_ = category;
  const QSignalBlocker allRowsAreNew(grid_);
  grid_->Redraw();
  grid_->SetCurrentCell(kItemCodeCol, 1);
  grid_->SetCurrentCell(kItemCodeCol, 0);
  changeRow(-1, grid_->CurrentRow());
}

// Goes to a row and follows there, however the grid tells of the steps of a move.
void ActivityItemEditor::move(int left, int row) {
  {
    const QSignalBlocker ownMove(grid_);
    grid_->SetCurrentCell(kItemCodeCol, row);
  }
  changeRow(left, grid_->CurrentRow());
}

// An added row that was never stored and the row of a deleted item go when they are left.
void ActivityItemEditor::changeRow(int left, int entered) {
  if (isChanged()) keepDiscardedItem();
  if (isNewRow(left)) {
    entered = dropRow(left, entered);
  } else if (left >= 0) {
    suggested_code_ = suggestedCode(codeAt(left));
  }
  if (entered >= 0) showRow(entered);
  apply(ItemEvent::EditEnded);
}

// Returns where the entered row is afterwards; −1 when none is left.
int ActivityItemEditor::dropRow(int row, int entered) {
  const QSignalBlocker ownMove(grid_);
  grid_->DeleteRows(row, 1);
  grid_->Redraw();
  if (entered > row || entered >= grid_->Rows()) --entered;
  grid_->SetCurrentCell(kItemCodeCol, entered);
  return entered;
}

void ActivityItemEditor::showRow(int row) {
  if (catalogue_.isEmpty()) return;
  if (const auto item = itemAt(row)) {
    fields_->showItem(*item);
  } else {
    fields_->showNew(catalogue_.freeCode(suggested_code_));
  }
}

std::optional<Item> ActivityItemEditor::itemAt(int row) {
  return catalogue_.find(itemIdAt(grid_->sheet(), row));
}

Changes ActivityItemEditor::changes() {
  Changes changes;
  if (mode_ != ItemMode::Browsing && fields_->item() != shown_) {
    changes.other = u"这个活动项目还没有保存"_qs;
  }
  return changes;
}

void ActivityItemEditor::keepDiscardedItem() {
  keepDiscarded([this, mode = mode_, id = shown_id_, item = fields_->item()] {
    return bringBack(mode, id, item);
  });
  apply(ItemEvent::EditEnded);
}

bool ActivityItemEditor::bringBack(ItemMode mode, qint64 id, const Item& item) {
  int row = 0;
  while (mode == ItemMode::Editing && row < grid_->Rows() && itemIdAt(grid_->sheet(), row) != id) {
    ++row;
  }
  if (!isRead() || row == grid_->Rows()) return false;
  if (mode == ItemMode::Adding) {
    startNew();
  } else {
    move(grid_->CurrentRow(), row);
  }
  fields_->showItem(item);
  apply(ItemEvent::FieldsChanged);
  return true;
}

QString ActivityItemEditor::codeAt(int row) const {
  return row < 0 ? QString() : grid_->GetCellText(kItemCodeCol, row);
}

void ActivityItemEditor::startNew() {
  const int left = grid_->CurrentRow();
  const int row = left + 1;
  {
    const QSignalBlocker ownMove(grid_);
    grid_->InsertRows(row, 1);
    prepareNewItemRow(grid_->sheet(), row);
    grid_->Redraw();
  }
  move(left, row);
  apply(ItemEvent::NewStarted);
  fields_->focusCode();
}

// Of several items with the typed code the selected one is meant.
bool ActivityItemEditor::store() {
  const Item item = fields_->item();
  auto found = itemAt(grid_->CurrentRow());
  if (!found || found->code != item.code) found = catalogue_.find(item.code);
  const bool adding = mode_ == ItemMode::Adding;
  const StoreStep step = storeStep(item, adding, isNewRow(grid_->CurrentRow()), found.has_value());
  switch (step) {
    case StoreStep::Incomplete:
      showMessage(u"活动编号和活动名称都要填写。"_qs);
      fields_->focusCode();
      break;
    case StoreStep::CodeTaken:
      prompts().warn(this, u"活动编号已经存在！"_qs);
      fields_->focusCode();
      break;
    case StoreStep::CodeUnknown:
      prompts().warn(this, u"活动编号没有找到！"_qs);
      cancel();
      break;
    case StoreStep::NoCategory:
      prompts().warn(this, u"请先选择活动类别，再保存活动项目。"_qs);
      fields_->focusCategory();
      break;
    case StoreStep::Add:
    case StoreStep::Change:
      return write(step, item);
  }
  return false;
}

bool ActivityItemEditor::write(StoreStep step, const Item& item) {
  bool isTaken = false;
  try {
    const auto withPlans =
        step == StoreStep::Change ? renamesPlans(item) : std::optional<bool>(false);
    if (!withPlans) return false;
    const bool isDone = saveAsking([&](bool overwrite) {
      if (*withPlans) return catalogue_.changeWithPlans(item, overwrite);
      if (step == StoreStep::Change) return catalogue_.change(item, overwrite);
      isTaken = !catalogue_.add(item);
    });
    if (!isDone) return false;
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
    return false;
  }
  if (isTaken) {
    prompts().warn(this, u"活动编号已经存在！"_qs);
    fields_->focusCode();
    return false;
  }
  showStored(item, catalogue_.currentId());
  cancel();
  return true;
}

// A plan finds its item by its name. None when the item is not to be stored after all.
std::optional<bool> ActivityItemEditor::renamesPlans(const Item& item) {
  enum Answer { Rename, Leave, Cancel };
  const qsizetype plans = catalogue_.plansLeftBy(item);
  if (plans == 0) return false;
  const QString question = u"有 %1 条计划用着原来的名称%2。要把它们一起改名吗？"_qs.arg(
      QString::number(plans), quoted(catalogue_.currentName()));
  const int answer =
      prompts().choose(this, question, {u"一起改名"_qs, u"不改"_qs, u"取消"_qs}, Rename);
  return answer == Cancel ? std::nullopt : std::optional(answer == Rename);
}

// In the current row, and where the item stands if its code was typed in another item's row.
void ActivityItemEditor::showStored(const Item& item, qint64 id) {
  Sheet& sheet = grid_->sheet();
  for (int row = 0; row < sheet.Rows(); ++row) {
    if (row == grid_->CurrentRow() || itemIdAt(sheet, row) == id) showItem(sheet, row, item, id);
  }
}

void ActivityItemEditor::cancel() {
  grid_->Redraw();
  if (const auto item = itemAt(grid_->CurrentRow())) {
    fields_->showItem(*item);
  } else {
    fields_->clear();
  }
  apply(ItemEvent::EditEnded);
  add_->setFocus();
}

void ActivityItemEditor::remove() {
  const CellRange selected = grid_->selectedCells();
  if (selected.row2 > selected.row1) return removeSelected();
  const int row = grid_->CurrentRow();
  if (row < 0) return;
  try {
    if (!isNewRow(row) && itemAt(row)) catalogue_.remove();
  } catch (const StoreError& error) {
    showMessage(u"没有删除："_qs + error.description());
    return;  // the item stays in the list, as it does in the schedule
  }
  grid_->SetCellText(kItemCodeCol, row, {});
  grid_->HideRow(0, row);
  move(row, row + 1 < grid_->Rows() ? row + 1 : grid_->Rows() - 2);
}

void ActivityItemEditor::removeSelected() {
  constexpr int kMostNamed = 10;
  const CellRange selected = grid_->selectedCells();
  std::vector<int> rows;
  QStringList names;
  for (int row = selected.row1; row <= selected.row2; ++row) {
    if (isNewRow(row)) continue;
    rows.push_back(row);
    if (names.size() < kMostNamed) names << grid_->GetCellText(kItemNameCol, row);
  }
  const QString rest = names.size() < std::ssize(rows) ? u"等 "_qs : u" "_qs;
  const QString question =
      u"要删除 %1%2%3 个活动项目吗？"_qs.arg(names.join(u'、'), rest, QString::number(rows.size()));
  if (rows.empty() || !prompts().ask(this, question)) return;
  try {
    ScheduleStore::Transaction all(state().Db);
    for (const int row : rows) {
      if (itemAt(row)) catalogue_.remove();
    }
    all.commit();
  } catch (const StoreError& error) {
    prompts().warn(this, u"没有删除："_qs + error.description());
  }
  filter();
}

void ActivityItemEditor::apply(ItemEvent event) {
  showMessage({});
  mode_ = nextMode(mode_, event, !hasItem());
  showButtons();
  if (event != ItemEvent::FieldsChanged) {
    shown_ = fields_->item();
    shown_id_ = itemIdAt(grid_->sheet(), grid_->CurrentRow());
  }
  updateChanges();
}

bool ActivityItemEditor::hasItem() {
  return grid_->CurrentRow() >= 0 && !catalogue_.isEmpty();
}

void ActivityItemEditor::showButtons() {
  const ItemButtons buttons = buttonsIn(mode_, hasItem());
  store_->setEnabled(isRead() && buttons.storeAndCancel);
  cancel_->setEnabled(isRead() && buttons.storeAndCancel);
  add_->setEnabled(isRead() && buttons.add);
  delete_->setEnabled(isRead() && buttons.remove);
}

}  // namespace vellora
