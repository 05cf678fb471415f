#include "board/plan_dialogs.h"

#include "grid/print/drawn_style.h"
#include "routine/calendar_text.h"
#include "routine/category.h"
#include "schedule/pinyin.h"
#include "shell/controls.h"
#include "shell/date_picker.h"
#include "shell/form_dialog.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

namespace vellora {
namespace {

constexpr int kMostText = 255;     // characters of a requirement
constexpr int kMostConflicts = 8;  // lines that a list opens with

// The arrows go through the list while the search field is typed into.
class ActivityDialog : public FormDialog {
 public:
  ActivityDialog(QWidget* parent, const QList<OpenItem>& items, const QString& typed)
      : FormDialog(parent, u"安排活动"_qs), items_(items) {
    search_ = named(new QLineEdit(this), u"Search"_qs, u"活动名称"_qs);
    list_ = named(new QListWidget(this), u"Activities"_qs, u"活动项目"_qs);
    search_->installEventFilter(this);
    add(u"活动名称(&N)"_qs, search_);
    add({}, list_);
    connect(search_, &QLineEdit::textChanged, this, [this] { list(); });
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    search_->setPlaceholderText(u"名称或拼音首字母"_qs);
    search_->setText(typed);
    list();
    resize(360, 420);
  }
  QString chosen() const { return list_->currentItem() ? list_->currentItem()->text() : QString(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Up || key == Qt::Key_Down) {
        QCoreApplication::sendEvent(list_, event);
        return true;
      }
    }
    return FormDialog::eventFilter(watched, event);
  }

 private:
  void list() {
    list_->clear();
    QStringList labels;
    for (const Category& category : categories()) labels << category.label;
    for (const OpenItem& item : items_) labels << item.category;  // another program's own
    labels.removeDuplicates();
    for (const QString& label : labels) listCategory(label);
    for (int row = 0; row < list_->count(); ++row) {
      if (!(list_->item(row)->flags() & Qt::ItemIsSelectable)) continue;
      list_->setCurrentRow(row);
      break;
    }
    ok().setEnabled(list_->currentItem() != nullptr);
  }
  bool isMeant(const QString& name) const {
    const QString typed = search_->text().trimmed();
    return name.contains(typed, Qt::CaseInsensitive) ||
           pinyinInitials(name).contains(typed.toLower());
  }
  void listCategory(const QString& label) {
    bool isHeaded = false;
    for (const OpenItem& item : items_) {
      if (item.category != label || !isMeant(item.name)) continue;
      if (!std::exchange(isHeaded, true)) {
        auto* heading = new QListWidgetItem(label, list_);
        heading->setFlags(Qt::ItemIsEnabled);
        QFont bold = heading->font();
        bold.setBold(true);
        heading->setFont(bold);
      }
      auto* line = new QListWidgetItem(item.name, list_);
      QPixmap sign(12, 12);
      sign.fill(colourOf(item.colour));
      line->setIcon(sign);
    }
  }

  QList<OpenItem> items_;
  QLineEdit* search_;
  QListWidget* list_;
};

QComboBox* makeBlocks(QWidget* parent, const TimeBlockList& blocks, const QString& code) {
  auto* box = named(new QComboBox(parent), u"Block"_qs);
  for (const TimeBlock& block : blocks) {
    box->addItem(block.line, block.code);
    if (block.code == code) box->setCurrentIndex(box->count() - 1);
  }
  return box;
}

}  // namespace

std::optional<PlanTexts> askPlanTexts(QWidget* parent, const PlanTexts& texts) {
  FormDialog dialog(parent, texts.activity);
  auto* requirement = named(new QLineEdit(texts.requirement, &dialog), u"Requirement"_qs);
  auto* level = named(new QLineEdit(texts.level, &dialog), u"Level"_qs);
  requirement->setMaxLength(qMax(kMostText, int(texts.requirement.size())));
  requirement->setMinimumWidth(320);
  dialog.add(u"要求(&Y)"_qs, requirement);
  dialog.add(u"等级(&D)"_qs, level);
  if (!dialog.isAccepted()) return {};
  return PlanTexts{texts.activity, requirement->text(), level->text()};
}

std::optional<PlanPlace> askPlace(QWidget* parent, const Clock& clock, const TimeBlockList& blocks,
                                  const PlanPlace& proposed) {
  FormDialog dialog(parent, u"移到"_qs);
  auto* date = new DatePicker(u"Date"_qs, u"日期"_qs, clock, &dialog);
  auto* block = makeBlocks(&dialog, blocks, proposed.second);
  date->setDate(proposed.first);
  dialog.add(u"日期(&R)"_qs, date);
  dialog.add(u"时间块(&K)"_qs, block);
  if (!dialog.isAccepted() || !date->finishTyping()) return {};
  return PlanPlace(date->date(), block->currentData().toString());
}

std::optional<QDate> askDate(QWidget* parent, const Clock& clock, const QString& title,
                             QDate proposed) {
  FormDialog dialog(parent, title);
  auto* date = new DatePicker(u"Date"_qs, u"日期"_qs, clock, &dialog);
  date->setDate(proposed);
  dialog.add(u"日期(&R)"_qs, date);
  if (!dialog.isAccepted() || !date->finishTyping()) return {};
  return date->date();
}

std::optional<QString> askActivity(QWidget* parent, const QList<OpenItem>& items,
                                   const QString& typed) {
  ActivityDialog dialog(parent, items, typed);
  if (!dialog.isAccepted() || dialog.chosen().isEmpty()) return {};
  return dialog.chosen();
}

std::optional<int> askWeeks(QWidget* parent, const QString& title) {
  constexpr int kMostWeeks = 60;
  FormDialog dialog(parent, title);
  auto* weeks = named(new QSpinBox(&dialog), u"Weeks"_qs);
  weeks->setRange(1, kMostWeeks);
  weeks->setSuffix(u" 周"_qs);
  dialog.add(u"复制到以后的(&W)"_qs, weeks);
  if (!dialog.isAccepted()) return {};
  return weeks->value();
}

std::optional<std::set<PlanPlace>> askAboutConflicts(QWidget* parent, const QString& what,
                                                     const std::vector<PlanConflict>& conflicts,
                                                     const TimeBlockList& blocks) {
  FormDialog dialog(parent, u"请确认"_qs);
  dialog.addText(what);
  auto* list = named(new QListWidget(&dialog), u"Conflicts"_qs, u"已有安排的时间"_qs);
  if (conflicts.empty()) {
    list->hide();
  } else {
    dialog.addText(u"以下 %1 处已有安排，选中的将被替换，其余保留原有："_qs.arg(conflicts.size()));
    for (const PlanConflict& conflict : conflicts) {
      auto* line = new QListWidgetItem(
          u"%1 %2：%3 → %4"_qs.arg(isoDate(conflict.place.first),
                                   placeText(conflict.place, blocks, conflict.place.first),
                                   conflict.holder, conflict.newcomer),
          list);
      line->setCheckState(Qt::Unchecked);
    }
    const auto checkAll = [list](Qt::CheckState state) {
      for (int row = 0; row < list->count(); ++row) list->item(row)->setCheckState(state);
    };
    auto* all = new QWidget(&dialog);
    auto* row = new QHBoxLayout(all);
    row->setContentsMargins({});
    row->addWidget(makeButton(u"ReplaceAll"_qs, u"全部替换(&A)"_qs, all,
                              [checkAll] { checkAll(Qt::Checked); }));
    row->addWidget(makeButton(u"KeepAll"_qs, u"全部保留(&K)"_qs, all,
                              [checkAll] { checkAll(Qt::Unchecked); }));
    row->addStretch();
    list->setMinimumSize(460, kMostConflicts * list->fontMetrics().lineSpacing());
    dialog.add({}, list);
    dialog.add({}, all);
  }
  if (!dialog.isAccepted()) return {};
  std::set<PlanPlace> kept;
  for (int row = 0; row < list->count(); ++row) {
    if (list->item(row)->checkState() == Qt::Unchecked) {
      kept.insert(conflicts[static_cast<std::size_t>(row)].place);
    }
  }
  return kept;
}

QString placeText(const PlanPlace& place, const TimeBlockList& blocks, QDate first) {
  const TimeBlock* block = blocks.find(place.second);
  const QString name = !block ? place.second : block->name.isEmpty() ? block->hours : block->name;
  const qint64 days = first.daysTo(place.first);
  const QString day = weekdayName(place.first);
  return (days >= 0 && days < kDaysInAWeek ? day : monthAndDay(place.first) + u' ' + day) + u' ' +
         name;
}

}  // namespace vellora
