#include "stats/WindowPlacement.h"

#include <gtest/gtest.h>

namespace quillmeter {
namespace {

constexpr QSize kWanted(1200, 780);

TEST(WindowPlacement, CentresTheWindowOnALargeScreen) {
  const QRect screen(0, 0, 1920, 1080);
  const QRect opened = openingGeometry(kWanted, screen);
  EXPECT_EQ(opened.size(), kWanted);
  EXPECT_NEAR(opened.center().x(), screen.center().x(), 1);
  EXPECT_NEAR(opened.center().y(), screen.center().y(), 20) << "with the title bar above it";
}

TEST(WindowPlacement, StaysInsideSmallScreensWithItsFrame) {
  for (const QRect screen : {QRect(0, 0, 1366, 768), QRect(0, 0, 1280, 720), QRect(0, 27, 1280, 693),
                             QRect(1920, 100, 1024, 600), QRect(-1366, 0, 1366, 768)}) {
    const QRect opened = openingGeometry(kWanted, screen);
    EXPECT_TRUE(screen.contains(opened.adjusted(-2, -26, 2, 2)))
        << screen.width() << " x " << screen.height();
  }
}

}  // namespace
}  // namespace quillmeter
