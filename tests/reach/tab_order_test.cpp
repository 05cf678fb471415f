// Everything that can be used is reached with the Tab key, in the order in which it is read.

#include "program.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScrollArea>

namespace vellora {
namespace {

using Tab = test::Program;
using Controls = QList<QWidget*>;

bool takesTab(const QWidget& control) {
  return control.isVisible() && control.isEnabled() && !control.focusProxy() &&
         (control.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

void readWidget(QWidget& widget, Controls& controls);

// The items of a layout stand in it in reading order; those of a grid are read line by line.
void readLayout(QLayout& layout, Controls& controls) {
  for (int i = 0; i < layout.count(); ++i) {
    QLayoutItem* item = layout.itemAt(i);
    if (item->widget()) readWidget(*item->widget(), controls);
    if (item->layout()) readLayout(*item->layout(), controls);
  }
}

void readWidget(QWidget& widget, Controls& controls) {
  if (takesTab(widget)) {
    controls << &widget;
  } else if (auto* area = qobject_cast<QScrollArea*>(&widget)) {
    readWidget(*area->widget(), controls);
  } else if (widget.layout()) {
    readLayout(*widget.layout(), controls);
  } else {
    for (auto* child : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      readWidget(*child, controls);
    }
  }
}

// One round of the Tab key, from the control that is read first.
Controls tabbed(QWidget* first) {
  Controls controls{first};
  for (QWidget* next = first->nextInFocusChain(); next != first; next = next->nextInFocusChain()) {
    if (takesTab(*next)) controls << next;
  }
  return controls;
}

std::string inWords(const Controls& controls) {
  std::string words;
  for (const auto* control : controls) words += test::described(*control) + ", ";
  return words;
}

// Alt and a letter of a caption, as the user would press them.
QList<QKeySequence> mnemonicsOf(const QWidget& window) {
  QList<QKeySequence> keys;
  for (const auto* button : test::shown<QAbstractButton>(window)) {
    keys << QKeySequence::mnemonic(button->text());
  }
  for (const auto* label : test::shown<QLabel>(window)) {
    if (label->buddy()) keys << QKeySequence::mnemonic(label->text());
  }
  keys.removeAll(QKeySequence());
  return keys;
}

TEST_F(Tab, GoesThroughEveryControlInReadingOrder) {
  lookAtEveryWindow([](QWidget& window) {
    Controls inReadingOrder;
    readLayout(*window.layout(), inReadingOrder);
    ASSERT_FALSE(inReadingOrder.isEmpty());
    const Controls inTabOrder = tabbed(inReadingOrder.first());
    EXPECT_EQ(inTabOrder, inReadingOrder)
        << "Tab:  " << inWords(inTabOrder) << "\nread: " << inWords(inReadingOrder);
  });
}

TEST_F(Tab, ReachesEveryButtonAndList) {
  lookAtEveryWindow([](QWidget& window) {
    for (const auto* button : window.findChildren<QPushButton*>()) {
      EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus) << test::described(*button);
    }
    for (const auto* view : window.findChildren<QAbstractItemView*>()) {
      EXPECT_TRUE(view->window() != &window || takesTab(*view) || view->isHidden() ||
                  view->inherits("QHeaderView"))
          << test::described(*view);
    }
  });
}

TEST_F(Tab, IsSparedByMnemonicsThatMeanOneControl) {
  lookAtEveryWindow([](QWidget& window) {
    const QList<QKeySequence> keys = mnemonicsOf(window);
    for (const auto& key : keys) EXPECT_EQ(keys.count(key), 1) << key.toString().toStdString();
  });
}

}  // namespace
}  // namespace vellora
