#include "app/product.h"

#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

namespace vellora {

// But for edges, which may be smoothed differently.
TEST(ProductIcon, IsThePictureThatTheDesktopShows) {
  for (const int size : {32, 64, 256}) {
    const QImage shown(QStringLiteral(ICON_DIR "/vellora-%1.png").arg(size));
    const QImage drawn = productIcon(size).toImage();
    ASSERT_EQ(shown.size(), drawn.size());
    int differing = 0;
    for (int i = 0; i < size * size; ++i) {
      const QColor a = shown.pixelColor(i % size, i / size);
      const QColor b = drawn.pixelColor(i % size, i / size);
      differing += std::abs(a.red() - b.red()) > 64 || std::abs(a.green() - b.green()) > 64 ||
                   std::abs(a.blue() - b.blue()) > 64 || std::abs(a.alpha() - b.alpha()) > 64;
    }
    EXPECT_LE(differing, size) << size;
  }
}

}  // namespace vellora
