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

const QColor kEdge(0x7b, 0x7c, 0x7d);

QImage pictureOf(QWidget& control, const QSize& size, const QPalette& colours) {
  static SkinStyle style;
  control.setStyle(&style);
  control.resize(size);
  QPalette palette(colours);
  palette.setColor(QPalette::Mid, kEdge);
  control.setPalette(palette);
  return control.grab().toImage();
}

}  // namespace

TEST(SkinStyle, ShowsTheEdgesOfFieldsOnADarkWindow) {
  QCheckBox check;
  QComboBox combo;
  QDateEdit date;
  QLineEdit line;
  QListWidget list;
  QPlainTextEdit text;
  for (QWidget* control :
       std::initializer_list<QWidget*>{&check, &combo, &date, &line, &list, &text}) {
    for (const auto window : {Qt::black, Qt::white}) {
      const QImage picture = pictureOf(*control, {80, 24}, QPalette(window, window));
      int points = 0;  // of the edge at the left
      for (int i = 0; i < 3 * 24; ++i) points += picture.pixelColor(i % 3, i / 3) == kEdge ? 1 : 0;
      EXPECT_EQ(points >= 8, window == Qt::black) << control->metaObject()->className();
    }
  }
}

}  // namespace vellora
