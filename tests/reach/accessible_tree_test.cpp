// What assistive tools are told of every window.

#include "grid/surface/grid_surface.h"
#include "program.h"

#include <QAccessible>
#include <QHeaderView>

namespace vellora {
namespace {

using AccessibleTree = test::Program;
using Node = QAccessibleInterface;

// Goes through what can be seen; what a table shows in cells is looked at by itself.
void walk(Node& node, const std::function<void(Node&)>& visit) {
  if (node.state().invisible) return;
  visit(node);
  if (node.tableInterface()) return;
  for (int i = 0; i < node.childCount(); ++i) {
    if (Node* child = node.child(i)) walk(*child, visit);
  }
}

void walk(QWidget& window, const std::function<void(Node&)>& visit) {
  walk(*QAccessible::queryAccessibleInterface(&window), visit);
}

std::string described(const Node& node) {
  const auto* object = node.object();
  return (object ? std::string(object->metaObject()->className()) + ' ' +
                       object->objectName().toStdString()
                 : std::string("part")) +
         " as role " + std::to_string(node.role());
}

bool isUsed(const Node& node) {
  static constexpr QAccessible::Role kRoles[]{QAccessible::Button,   QAccessible::PushButton,
                                              QAccessible::CheckBox, QAccessible::ComboBox,
                                              QAccessible::SpinBox,  QAccessible::List,
                                              QAccessible::Table,    QAccessible::EditableText,
                                              QAccessible::ListItem, QAccessible::Document};
  return std::find(std::begin(kRoles), std::end(kRoles), node.role()) != std::end(kRoles);
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

TEST_F(AccessibleTree, NamesWhateverCanBeUsed) {
  lookAtEveryWindow([](QWidget& window) {
    int used = 0;
    walk(window, [&used](Node& node) {
      if (!isUsed(node) || isPartOfABox(node)) return;
      ++used;
      EXPECT_FALSE(nameOf(node).trimmed().isEmpty()) << described(node);
      const bool isText = node.role() == QAccessible::EditableText;
      EXPECT_TRUE(!isText || node.textInterface()) << described(node);
    });
    EXPECT_GT(used, 0);
  });
}

TEST_F(AccessibleTree, TellsTheRoleOfWhateverTakesTheKeyboard) {
  lookAtEveryWindow([](QWidget& window) {
    walk(window, [](Node& node) {
      if (!node.state().focusable || isPartOfABox(node)) return;
      EXPECT_TRUE(isUsed(node)) << described(node);
    });
  });
}

TEST_F(AccessibleTree, TellsListsAndTablesInOneWindowApart) {
  lookAtEveryWindow([](QWidget& window) {
    QStringList names;
    walk(window, [&names](Node& node) {
      if (node.tableInterface()) names << nameOf(node);
    });
    EXPECT_EQ(names.removeDuplicates(), 0) << names.join(u' ').toStdString();
  });
}

TEST_F(AccessibleTree, ReadsEveryCellWithItsHeadings) {
  int cells = 0;
  lookAtEveryWindow([&cells](QWidget& window) {
    for (const auto* grid : test::shown<GridSurface>(window)) {
      auto* node = QAccessible::queryAccessibleInterface(const_cast<GridSurface*>(grid));
      auto* table = node->tableInterface();
      ASSERT_EQ(table->rowCount(), grid->Rows());
      ASSERT_EQ(table->columnCount(), grid->Cols());
      for (int row = 0; row < grid->Rows(); ++row) {
        for (int col = 0; col < grid->Cols(); ++col, ++cells) {
          const Node* cell = table->cellAt(row, col);
          QString shown = grid->GetCellText(col, row);
          ASSERT_EQ(cell->text(QAccessible::Name), shown.replace(u'\r', u'\n'));
          ASSERT_EQ(cell->role(), QAccessible::Cell);
          ASSERT_FALSE(table->rowDescription(row).isEmpty()) << row;
          const bool hasHeadings = window.objectName() != u"BackupWindow";
          ASSERT_TRUE(!hasHeadings || !table->columnDescription(col).isEmpty()) << col;
        }
      }
    }
  });
  EXPECT_GT(cells, 1'000);
}

}  // namespace
}  // namespace vellora
