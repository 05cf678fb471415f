#include "editors/item_fields.h"

#include "routine/category.h"
#include "shell/controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSignalBlocker>

namespace vellora {
namespace {

// A text from elsewhere may be longer than what can be typed here: cutting it would store it cut
// with the next change.
void setText(QLineEdit& field, const QString& text, int limit) {
  field.setMaxLength(qMax(limit, static_cast<int>(text.size())));
  field.setText(text);
  field.setCursorPosition(0);
}

}  // namespace

ItemFields::ItemFields(QWidget* parent)
    : QWidget(parent),
      code_(named(new QLineEdit(this), u"TxtHDBH"_qs)),
      name_(named(new QLineEdit(this), u"txtHDMC"_qs)),
      category_(named(new QComboBox(this), u"Combo1"_qs)),
      completed_(named(new QCheckBox(u"是否完成"_qs, this), u"Check1"_qs)) {
  for (const Category& category : categories()) category_->addItem(category.label);
  category_->setCurrentIndex(-1);
  setTexts({}, {});
  layOut();
  connect(code_, &QLineEdit::textChanged, this, &ItemFields::edited);
  connect(name_, &QLineEdit::textChanged, this, &ItemFields::edited);
  connect(category_, &QComboBox::activated, this, &ItemFields::edited);
  connect(completed_, &QCheckBox::clicked, this, &ItemFields::edited);
  connect(code_, &QLineEdit::returnPressed, name_, [this] { name_->setFocus(); });
  connect(name_, &QLineEdit::returnPressed, this, &ItemFields::finished);
}

void ItemFields::layOut() {
  name_->setMinimumWidth(fontMetrics().horizontalAdvance(u'活') * 16);
  auto* form = new QFormLayout(this);
  form->setContentsMargins({});
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(u"活动编号"_qs, code_);
  form->addRow(u"活动名称"_qs, name_);
  form->addRow(u"活动类别"_qs, category_);
  form->addRow(QString(), completed_);
}

Item ItemFields::item() const {
  return {storedItemText(code_->text()), storedItemText(name_->text()), category_->currentText(),
          completed_->isChecked()};
}

void ItemFields::showItem(const Item& item) {
  setTexts(item.code, item.name);
  showCategory(item.category);
  completed_->setChecked(item.completed);
}

void ItemFields::showNew(const QString& code) {
  setTexts(code.size() <= kItemCodeLength ? code : QString(), {});
  completed_->setChecked(false);
}

void ItemFields::clear() {
  setTexts({}, {});
  completed_->setChecked(false);
}

void ItemFields::setTexts(const QString& code, const QString& name) {
  const QSignalBlocker codeByProgram(code_);
  const QSignalBlocker nameByProgram(name_);
  setText(*code_, code, kItemCodeLength);
  setText(*name_, name, kItemNameLength);
}

// A category that is none of the six cannot be chosen, but can be read.
void ItemFields::showCategory(const QString& category) {
  category_->setPlaceholderText(category);
  category_->setCurrentIndex(categoryIndex(category).value_or(-1));
}

void ItemFields::focusCode() {
  code_->setFocus();
  code_->selectAll();
}

void ItemFields::focusCategory() {
  category_->setFocus();
}

}  // namespace vellora
