#include <gtest/gtest.h>

#include "core/base/Geometry.h"

namespace ambrel {
namespace {

TEST(Geometry, FlippingGoesBothWays) {
  // A bar 8 above the lower edge of a main screen 900 high.
  const Rect bar{321, 8, 958, 84};
  EXPECT_EQ(flipped(bar, 900), (Rect{321, 808, 958, 84}));
  EXPECT_EQ(flipped(flipped(bar, 900), 900), bar);
  // A screen above the main one starts at its height.
  EXPECT_EQ(flipped(Rect{0, -1080, 1920, 1080}, 900), (Rect{0, 900, 1920, 1080}));
  EXPECT_EQ(flipped(Point{5, 900}, 900), (Point{5, 0}));
}

TEST(Geometry, UpperEdgesBelongToTheNeighbourUnlessClosed) {
  const Rect screen{0, 0, 1600, 900};
  EXPECT_TRUE(screen.contains({0, 0}));
  EXPECT_FALSE(screen.contains({1600, 10}));
  EXPECT_FALSE(screen.contains({10, 900}));
  EXPECT_TRUE(screen.contains({1600, 900}, true));
  EXPECT_FALSE(screen.contains({-0.5, 10}, true));
}

}  // namespace
}  // namespace ambrel
