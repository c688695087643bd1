// Tests of the pictures that are compiled into the program.
#include "desktop/qt/art.h"

#include <gmock/gmock.h>

#include <QImage>
#include <algorithm>

namespace discwright::desktop {
namespace {

TEST(SidePicture, HasThreePixelsForEachUnitOfTheDrawing) { EXPECT_EQ(SidePicture().size(), QSize(600, 1800)); }

TEST(SidePicture, LowestSixth_HasOneOpaqueColourThatAWindowCanContinue) {
  const QImage picture = SidePicture().toImage();
  const QRgb lowest = picture.pixel(0, 1799);
  EXPECT_EQ(qAlpha(lowest), 255);
  for (int y = 1500; y < 1800; ++y) {
    for (int x = 0; x < 600; ++x) ASSERT_EQ(picture.pixel(x, y), lowest) << x << ", " << y;
  }
}

TEST(ProgramIcon, HasTheSizesThatDesktopsShow) {
  QList<QSize> sizes = ProgramIcon().availableSizes();
  std::sort(sizes.begin(), sizes.end(), [](const QSize& a, const QSize& b) { return a.width() < b.width(); });
  QList<QSize> wanted;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) wanted.append(QSize(size, size));
  EXPECT_EQ(sizes, wanted);
}

TEST(ProgramIcon, CornersAreTransparent) { EXPECT_EQ(qAlpha(ProgramIcon().pixmap(16, 16).toImage().pixel(0, 0)), 0); }

}  // namespace
}  // namespace discwright::desktop
