#include "app/product_icon.h"

#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

namespace vellora {
namespace {

int largestDifference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                   std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

// Pixels of one picture that are clearly another colour in the other; edges may be smoothed
// differently.
int differingPixels(const QImage& a, const QImage& b) {
  constexpr int kSmoothing = 64;
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (largestDifference(a.pixel(x, y), b.pixel(x, y)) > kSmoothing) ++count;
    }
  }
  return count;
}

}  // namespace

TEST(ProductIcon, IsThePictureThatTheDesktopShows) {
  for (const int size : {32, 64, 256}) {
    const QImage shown(QStringLiteral(ICON_DIR "/vellora-%1.png").arg(size));
    const QImage drawn = productIcon(size).toImage();
    ASSERT_EQ(shown.size(), drawn.size());
    EXPECT_LE(differingPixels(shown, drawn), size) << size;
  }
}

}  // namespace vellora
