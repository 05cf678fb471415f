#include "app/skin_style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace vellora {
namespace {

// How many points of the control's left edge have a colour.
int edgePoints(QWidget& control, const QColor& colour) {
  const QImage picture = control.grab().toImage();
  int found = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < 3; ++x) found += picture.pixelColor(x, y) == colour ? 1 : 0;
  }
  return found;
}

TEST(SkinStyle, ShowsTheEdgesOfFieldsOnADarkWindow) {
  SkinStyle style;
  QCheckBox check;
  QComboBox combo;
  QDateEdit date;
  QLineEdit line;
  QListWidget list;
  QPlainTextEdit text;
  const QColor edge(0x7b, 0x7c, 0x7d);
  for (QWidget* control :
       std::initializer_list<QWidget*>{&check, &combo, &date, &line, &list, &text}) {
    control->setStyle(&style);
    control->resize(80, 24);
    for (const auto window : {Qt::black, Qt::white}) {
      QPalette palette(window, window);
      palette.setColor(QPalette::Mid, edge);
      control->setPalette(palette);
      EXPECT_EQ(edgePoints(*control, edge) >= 8, window == Qt::black)
          << control->metaObject()->className();
    }
    control->setStyle(nullptr);
  }
}

// The colours from edge to edge of a scroll bar at a height.
std::vector<QColor> coloursAcross(QScrollBar& bar, int y) {
  const QImage picture = bar.grab().toImage();
  std::vector<QColor> colours;
  for (int x = 0; x < picture.width(); ++x) {
    const QColor colour = picture.pixelColor(x, y);
    if (std::find(colours.begin(), colours.end(), colour) == colours.end())
      colours.push_back(colour);
  }
  return colours;
}

TEST(SkinStyle, TellsTheSliderOfAScrollBarFromItsTrackWithoutShades) {
  SkinStyle style;
  QScrollBar bar(Qt::Vertical);
  bar.setStyle(&style);
  bar.resize(16, 400);
  bar.setRange(0, 100);
  bar.setPageStep(100);
  for (const auto& button : {QColor(Qt::black), QColor(0xf0, 0xf0, 0xf0)}) {
    QPalette palette(button);
    palette.setColor(QPalette::Mid, QColor(0x7b, 0x7c, 0x7d));
    bar.setPalette(palette);
    const std::vector<QColor> slider = coloursAcross(bar, 100);
    const std::vector<QColor> track = coloursAcross(bar, 300);
    EXPECT_EQ(track.size(), 1U);
    EXPECT_EQ(slider, (std::vector<QColor>{palette.color(QPalette::Mid), button}));
    EXPECT_NE(slider.front(), track.front());
  }
  bar.setStyle(nullptr);
}

}  // namespace
}  // namespace vellora
