// Runs at 100 % to 300 % of the usual size: every caption has the room that it asks for.

#include "grid/surface/grid_surface.h"
#include "program.h"
#include "shell/date_picker.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>

namespace vellora {
namespace {

using ScaledWindows = test::Program;

void expectRoom(const QWidget& control, QSize room, QSize text) {
  EXPECT_TRUE(room.width() >= text.width() && room.height() >= text.height())
      << test::described(control) << ": text of " << text.width() << " x " << text.height()
      << " in " << room.width() << " x " << room.height();
}

QSize textSize(const QWidget& control, const QString& text) {
  return control.fontMetrics().size(Qt::TextShowMnemonic, text);
}

void checkLabel(const QLabel& label) {
  if (label.text().isEmpty()) return;
  const QSize room = label.contentsRect().size();
  const bool wraps = label.wordWrap();
  expectRoom(label, room,
             wraps ? QSize(0, label.heightForWidth(label.width())) : textSize(label, label.text()));
}

// How much of a button the style leaves to its caption.
void checkButton(const QAbstractButton& button, QStyle::SubElement contents) {
  QStyleOptionButton option;
  option.initFrom(&button);
  const QSize room = button.style()->subElementRect(contents, &option, &button).size();
  expectRoom(button, room, textSize(button, button.text()));
}

void checkComboBox(const QComboBox& box) {
  QStyleOptionComboBox option;
  option.initFrom(&box);
  const QSize room =
      box.style()
          ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box)
          .size();
  for (int i = 0; i < box.count(); ++i) expectRoom(box, room, textSize(box, box.itemText(i)));
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

// Headings and times that stand in the grid itself.
void checkFrozenCells(const GridSurface& grid) {
  for (int col = 0; col < grid.Cols(); ++col) {
    const auto font = grid.model()->index(0, col).data(Qt::FontRole).value<QFont>();
    const QString text = grid.model()->index(0, col).data().toString();
    expectRoom(grid, {grid.columnWidth(col), grid.rowHeight(0)}, QFontMetrics(font).size(0, text));
  }
}

TEST_F(ScaledWindows, CutNoCaption) {
  lookAtEveryWindow([](QWidget& window) {
    for (const auto* label : test::shown<QLabel>(window)) checkLabel(*label);
    for (const auto* button : test::shown<QPushButton>(window)) {
      checkButton(*button, QStyle::SE_PushButtonContents);
    }
    for (const auto* box : test::shown<QCheckBox>(window)) {
      checkButton(*box, QStyle::SE_CheckBoxContents);
    }
    for (const auto* box : test::shown<QComboBox>(window)) checkComboBox(*box);
    for (const auto* header : test::shown<QHeaderView>(window)) checkHeadings(*header);
    if (window.objectName() == u"Form0") checkFrozenCells(*window.findChild<GridSurface*>());
  });
}

TEST_F(ScaledWindows, ShowDatesAndCountsWhole) {
  lookAtEveryWindow([](QWidget& window) {
    for (const auto* date : test::shown<DatePicker>(window)) {
      checkLine(*date->findChild<QLineEdit*>());
    }
    for (const auto& name : {u"Text1"_qs, u"Text4"_qs, u"TxtHDBH"_qs}) {
      if (const auto* count = window.findChild<QLineEdit*>(name)) checkLine(*count);
    }
  });
}

TEST_F(ScaledWindows, FitTheScreen) {
  lookAtEveryWindow([](QWidget& window) {
    const QSize room = window.screen()->availableSize();
    expectRoom(window, room, window.frameGeometry().size());
  });
}

}  // namespace
}  // namespace vellora
