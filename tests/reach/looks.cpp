#include "reach/looks.h"

#include "grid/surface/grid_surface.h"
#include "shell/date_picker.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>

#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace vellora::test {
namespace {

using Node = QAccessibleInterface;
using Controls = QList<QWidget*>;

// Goes through what can be seen; what a table shows in cells is looked at by itself.
void walk(Node& node, const std::function<void(Node&)>& visit) {
  if (node.state().invisible) return;
  visit(node);
  if (node.tableInterface()) return;
  for (int i = 0; i < node.childCount(); ++i) {
    if (Node* child = node.child(i)) walk(*child, visit);
  }
}

bool isUsed(const Node& node) {
  static const std::set<QAccessible::Role> kRoles{QAccessible::Button,   QAccessible::PushButton,
                                                  QAccessible::CheckBox, QAccessible::ComboBox,
                                                  QAccessible::SpinBox,  QAccessible::List,
                                                  QAccessible::Table,    QAccessible::EditableText,
                                                  QAccessible::ListItem, QAccessible::Document};
  return kRoles.contains(node.role());
}

// A box's own line of text is read with the box.
bool isPartOfABox(const Node& node) {
  const Node* parent = node.parent();
  return parent &&
         (parent->role() == QAccessible::SpinBox || parent->role() == QAccessible::ComboBox);
}

// A combo box's name is its choice, so its label has to be one of its relations.
QString nameOf(const Node& node) {
  const auto labels = node.relations(QAccessible::Label);
  if (!labels.isEmpty()) return labels.first().first->text(QAccessible::Name);
  return node.role() == QAccessible::ComboBox ? node.text(QAccessible::Description)
                                              : node.text(QAccessible::Name);
}

void expectReadableCells(GridSurface& grid, bool hasHeadings) {
  auto* table = QAccessible::queryAccessibleInterface(&grid)->tableInterface();
  ASSERT_EQ(table->rowCount(), grid.Rows());
  ASSERT_EQ(table->columnCount(), grid.Cols());
  EXPECT_GT(grid.Rows() * grid.Cols(), 0);
  for (int row = 0; row < grid.Rows(); ++row) {
    ASSERT_FALSE(table->rowDescription(row).isEmpty()) << row;
    for (int col = 0; col < grid.Cols(); ++col) {
      const Node* cell = table->cellAt(row, col);
      QString text = grid.GetCellText(col, row);
      ASSERT_EQ(cell->text(QAccessible::Name), text.replace(u'\r', u'\n'));
      ASSERT_EQ(cell->role(), QAccessible::Cell);
      ASSERT_TRUE(!hasHeadings || !table->columnDescription(col).isEmpty()) << col;
    }
  }
}

bool takesTab(const QWidget& control) {
  return control.isVisible() && control.isEnabled() && !control.focusProxy() &&
         (control.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

// The items of a layout stand in it in reading order; those of a grid are read line by line.
void readLayout(QLayout& layout, Controls& controls);

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

void readLayout(QLayout& layout, Controls& controls) {
  for (int i = 0; i < layout.count(); ++i) {
    QLayoutItem* item = layout.itemAt(i);
    if (item->widget()) readWidget(*item->widget(), controls);
    if (item->layout()) readLayout(*item->layout(), controls);
  }
}

std::string inWords(const Controls& controls) {
  std::string words;
  for (const auto* control : controls) words += described(*control) + ", ";
  return words;
}

void expectRoom(const QWidget& control, QSize room, QSize text) {
  EXPECT_TRUE(room.width() >= text.width() && room.height() >= text.height())
      << described(control) << ": text of " << text.width() << " x " << text.height() << " in "
      << room.width() << " x " << room.height();
}

QSize textSize(const QWidget& control, const QString& text) {
  return control.fontMetrics().size(Qt::TextShowMnemonic, text);
}

void checkLabel(const QLabel& label) {
  if (label.text().isEmpty()) return;
  const bool wraps = label.wordWrap();
  expectRoom(label, label.contentsRect().size(),
             wraps ? QSize(0, label.heightForWidth(label.width())) : textSize(label, label.text()));
}

// How much of a button the style leaves to its caption.
void checkButton(const QAbstractButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  const auto contents = qobject_cast<const QCheckBox*>(&button) ? QStyle::SE_CheckBoxContents
                                                                : QStyle::SE_PushButtonContents;
  expectRoom(button, button.style()->subElementRect(contents, &option, &button).size(),
             textSize(button, button.text()));
}

void checkComboBox(const QComboBox& box) {
  QStyleOptionComboBox option;
  option.initFrom(&box);
  const QRect room =
      box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
  for (int i = 0; i < box.count(); ++i)
    expectRoom(box, room.size(), textSize(box, box.itemText(i)));
}

// The ink of the text: the last letter's blank side may touch the edge.
void checkLine(const QLineEdit& line) {
  constexpr int kInnerMargins = 4;  // what QLineEdit keeps free left and right of its text
  const QRect ink = line.fontMetrics().tightBoundingRect(line.text());
  expectRoom(line, line.contentsRect().size() - QSize(kInnerMargins, 0),
             {ink.right(), ink.height()});
}

void checkHeadings(const QHeaderView& header) {
  for (int i = 0; i < header.count(); ++i) {
    if (header.isSectionHidden(i)) continue;
    const bool across = header.orientation() == Qt::Horizontal;
    const QVariant font = header.model()->headerData(i, header.orientation(), Qt::FontRole);
    const QString text = header.model()->headerData(i, header.orientation()).toString();
    const QFontMetrics metrics(font.isValid() ? font.value<QFont>() : header.font());
    const QSize room = across ? QSize(header.sectionSize(i), header.height())
                              : QSize(header.width(), header.sectionSize(i));
    expectRoom(header, room, metrics.size(0, text));
  }
}

// The board's headings stand in the grid itself.
void checkHeadingCells(const GridSurface& grid) {
  for (int col = 0; col < grid.Cols(); ++col) {
    const QModelIndex cell = grid.model()->index(0, col);
    const QFontMetrics metrics(cell.data(Qt::FontRole).value<QFont>());
    expectRoom(grid, {grid.columnWidth(col), grid.rowHeight(0)},
               metrics.size(0, cell.data().toString()));
  }
}

}  // namespace

std::string described(const QWidget& control) {
  return std::string(control.metaObject()->className()) + ' ' + control.objectName().toStdString() +
         " “" + control.property("text").toString().toStdString() + "”";
}

void expectReadable(QWidget& window) {
  QStringList tables;
  walk(*QAccessible::queryAccessibleInterface(&window), [&](Node& node) {
    const auto* widget = qobject_cast<const QWidget*>(node.object());
    SCOPED_TRACE((widget ? described(*widget) : "part") + " as " + std::to_string(node.role()));
    if (isPartOfABox(node)) return;
    EXPECT_TRUE(isUsed(node) || !node.state().focusable);
    EXPECT_TRUE(!isUsed(node) || !nameOf(node).trimmed().isEmpty());
    EXPECT_TRUE(node.role() != QAccessible::EditableText || node.textInterface());
    if (node.tableInterface()) tables << nameOf(node);
  });
  EXPECT_EQ(tables.removeDuplicates(), 0) << tables.join(u' ').toStdString();
  for (auto* grid : shown<GridSurface>(window)) {
    expectReadableCells(*grid, window.objectName() != u"BackupWindow");
  }
}

void expectReachedByKeys(QWidget& window) {
  Controls read;
  readLayout(*window.layout(), read);
  ASSERT_FALSE(read.isEmpty());
  Controls tabbed{read.first()};
  for (QWidget* next = read.first()->nextInFocusChain(); next != read.first();
       next = next->nextInFocusChain()) {
    if (takesTab(*next)) tabbed << next;
  }
  EXPECT_EQ(tabbed, read) << "Tab:  " << inWords(tabbed) << "\nread: " << inWords(read);
  QStringList letters;
  for (const auto* button : window.findChildren<QPushButton*>()) {
    EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus) << described(*button);
  }
  for (const auto* button : shown<QAbstractButton>(window)) {
    letters << QKeySequence::mnemonic(button->text()).toString();
  }
  for (const auto* label : shown<QLabel>(window)) {
    if (label->buddy()) letters << QKeySequence::mnemonic(label->text()).toString();
  }
  letters.removeAll(QString());
  EXPECT_EQ(letters.removeDuplicates(), 0) << "letters that mean two controls";
  for (const auto* view : window.findChildren<QAbstractItemView*>()) {
    const bool isReached = takesTab(*view) || !view->isVisible() || view->inherits("QHeaderView");
    EXPECT_TRUE(view->window() != &window || isReached) << described(*view);
  }
}

void expectRoomForTexts(QWidget& window) {
  for (const auto* label : shown<QLabel>(window)) checkLabel(*label);
  for (const auto* button : shown<QPushButton>(window)) checkButton(*button);
  for (const auto* box : shown<QCheckBox>(window)) checkButton(*box);
  for (const auto* box : shown<QComboBox>(window)) checkComboBox(*box);
  for (const auto* header : shown<QHeaderView>(window)) checkHeadings(*header);
  if (window.objectName() == u"Form0") checkHeadingCells(*window.findChild<GridSurface*>());
  for (const auto* date : shown<DatePicker>(window)) checkLine(*date->findChild<QLineEdit*>());
  for (const auto& name : {u"Text1"_qs, u"Text4"_qs, u"TxtHDBH"_qs}) {
    if (const auto* count = window.findChild<QLineEdit*>(name)) checkLine(*count);
  }
  expectRoom(window, window.screen()->availableSize(), window.frameGeometry().size());
}

}  // namespace vellora::test
