// Every window of the program over the demonstration schedule, opened from the board as a user
// opens it: what assistive tools read, where the Tab key goes, whether captions have room.

#include "app/platform.h"
#include "app/start_up.h"
#include "board/command_bar.h"
#include "grid/surface/grid_surface.h"
#include "sample_schedule.h"
#include "shell/date_picker.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
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
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace vellora {
namespace {

using Node = QAccessibleInterface;
using Controls = QList<QWidget*>;

// What the user can see of a kind of control in a window, parts of Qt's own controls included.
template <typename Control>
QList<Control*> shown(const QWidget& window) {
  QList<Control*> controls = window.findChildren<Control*>();
  controls.removeIf([](const Control* control) { return !control->isVisible(); });
  return controls;
}

// Kind, name and text of a control, for the message of a failed check.
std::string described(const QWidget& control) {
  return std::string(control.metaObject()->className()) + ' ' + control.objectName().toStdString() +
         " “" + control.property("text").toString().toStdString() + "”";
}

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
  static const std::set<QAccessible::Role> kRoles{
      QAccessible::Button,   QAccessible::PushButton,   QAccessible::CheckBox,
      QAccessible::ComboBox, QAccessible::SpinBox,      QAccessible::List,
      QAccessible::Table,    QAccessible::EditableText, QAccessible::ListItem,
      QAccessible::Document, QAccessible::PageTab,      QAccessible::PageTabList};
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
  ASSERT_GT(grid.Rows() * grid.Cols(), 0);
  for (int row = 0; row < grid.Rows(); ++row) {
    ASSERT_FALSE(table->rowDescription(row).isEmpty()) << row;
    for (int col = 0; col < grid.Cols(); ++col) {
      const Node* cell = table->cellAt(row, col);
      ASSERT_EQ(cell->text(QAccessible::Name), grid.GetCellText(col, row).replace(u'\r', u'\n'));
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

// Assistive tools are told the name and the role of whatever can be used, and every cell with its
// headings.
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

// The Tab key goes through everything that can be used, in the order in which it is read, and Alt
// with a letter means one control.
void expectReachedByKeys(QWidget& window) {
  Controls read;
  readLayout(*window.layout(), read);
  ASSERT_FALSE(read.isEmpty());
  Controls tabbed{read.first()};
  for (QWidget* next = read.first()->nextInFocusChain(); next != read.first();
       next = next->nextInFocusChain()) {
    if (takesTab(*next)) tabbed << next;
  }
  std::string words;
  for (const auto* control : tabbed) words += described(*control) + ", ";
  EXPECT_EQ(tabbed, read) << words;
  QStringList letters;
  for (const auto* control : shown<QWidget>(window)) {
    const auto* label = qobject_cast<const QLabel*>(control);
    if (control->inherits("QAbstractButton") || (label && label->buddy())) {
      letters << QKeySequence::mnemonic(control->property("text").toString()).toString();
    }
    const bool isUsed = control->inherits("QPushButton") || control->inherits("QAbstractItemView");
    if (!isUsed || control->inherits("QHeaderView") || control->window() != &window) continue;
    EXPECT_TRUE(control->focusPolicy() & Qt::TabFocus) << described(*control);
  }
  letters.removeAll(QString());
  EXPECT_EQ(letters.removeDuplicates(), 0) << "letters that mean two controls";
}

// Every caption, date and count has the room that it asks for, and the window that of the screen.
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

// At what it shows after its first command.
void expectWhole(QWidget& window) {
  SCOPED_TRACE(described(window));
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  for (const auto& [kind, name] : {std::pair(u"StatisticsWindow"_qs, u"Command1"_qs),
                                   std::pair(u"BackupWindow"_qs, u"cmdO"_qs)}) {
    if (window.objectName() == kind) window.findChild<QPushButton*>(name)->click();
  }
  QCoreApplication::processEvents();
  expectReadable(window);
  expectReachedByKeys(window);
  expectRoomForTexts(window);
}

}  // namespace

TEST(Windows, AreReadReachedAndSeenWhole) {
  test::ScheduleBuilder schedule;
  test::ScriptedPrompts prompts;
  test::FixedClock clock{QDate(2007, 3, 5)};
  {
    ScheduleStore store = schedule.store();
    writeDemonstration(store, clock.today());
  }
  schedule.skin(QStringLiteral(SKIN_DIR "/KTZ0.SKN"));
  StartUp startUp(schedule.folder(), prompts, clock);
  startUp.showBoard();
  WeekBoard& board = startUp.board();
  expectWhole(board);
  const auto look = [&board](const std::function<void()>& open) {
    const QWidget* seen = nullptr;
    QTimer::singleShot(0, &board, [&seen] {
      QWidget* window = QApplication::activeModalWidget();
      ASSERT_NE(window, nullptr);
      seen = window;
      expectWhole(*window);
      window->close();
    });
    open();
    EXPECT_NE(seen, nullptr);
  };
  for (const auto command :
       {BoardCommand::DailyPlan, BoardCommand::ActivityPlan, BoardCommand::Statistics,
        BoardCommand::TimeBlocks, BoardCommand::ActivityItems, BoardCommand::Memo,
        BoardCommand::WeekNames, BoardCommand::Backup, BoardCommand::UsageNotes,
        BoardCommand::About}) {
    look([&] { board.findChild<CommandBar*>()->button(command).click(); });
  }
  const QString calendar = schedule.folder() + QStringLiteral("/a.ics");
  test::writeBytes(calendar,
                   "BEGIN:VCALENDAR\nBEGIN:VEVENT\nDTSTART:20070305T080000\nSUMMARY:New\n"
                   "RRULE:FREQ=DAILY;COUNT=9\nEND:VEVENT\nBEGIN:VEVENT\nDTSTART:20070305\n"
                   "SUMMARY:Day\nEND:VEVENT\nEND:VCALENDAR\n");
  prompts.files << calendar;
  for (const auto& command : {u"ExportCalendar"_qs, u"ImportCalendar"_qs}) {
    look([&] { board.findChild<QAction*>(command)->trigger(); });
  }
}

}  // namespace vellora

// With the program's own style, faces and language.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  vellora::setUpPlatform(application);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
