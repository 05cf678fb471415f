#include "app/skin_style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace vellora
