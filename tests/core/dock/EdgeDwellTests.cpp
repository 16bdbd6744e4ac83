#include <gtest/gtest.h>

#include "core/dock/EdgeDwell.h"
#include "core/dock/EdgeStrips.h"

namespace ambrel {
namespace {

const Instant start = instantFromUnixSeconds(1'795'262'400);
const ScreenFrames plain{{0, 0, 1600, 900}, {0, 0, 1600, 900}};

// Whether a pointer that has rested there for so long is taken for a wish.
bool asks(std::optional<Point> pointer, double seconds, const std::vector<ScreenFrames>& screens = {plain}) {
  EdgeDwell dwell;
  dwell.update(pointer, screens, start);
  return dwell.update(pointer, screens, advanced(start, Seconds(seconds)));
}

TEST(EdgeDwell, OnlyAPointerThatRestsInTheMiddleOfTheEdgeAsks) {
  EXPECT_TRUE(asks(Point{800, 900}, 0.25));
  EXPECT_TRUE(asks(Point{800, 898.5}, 0.25));
  EXPECT_TRUE(asks(Point{1000, 899}, 1));
  EXPECT_FALSE(asks(Point{800, 900}, 0.24));
  EXPECT_FALSE(asks(Point{800, 898}, 1));
  EXPECT_FALSE(asks(Point{1001, 900}, 1));
  EXPECT_FALSE(asks(Point{800, 1200}, 1));
  EXPECT_FALSE(asks(std::nullopt, 1));
  EXPECT_FALSE(asks(Point{800, 900}, 1, {}));
}

TEST(EdgeDwell, AnotherProgramsPanelKeepsItsEdge) {
  const std::vector<ScreenFrames> below{{{0, 0, 1600, 900}, {0, 0, 1600, 870}}};
  for (const double y : {900.0, 870.5, 865.5}) EXPECT_FALSE(asks(Point{800, y}, 1, below)) << y;
  EXPECT_TRUE(asks(Point{800, 868}, 0.5, below));
  EXPECT_FALSE(asks(Point{800, 868}, 0.49, below));
  EXPECT_TRUE(asks(Point{800, 900}, 1, {{{0, 0, 1600, 900}, {0, 40, 1600, 860}}}));
  // Where windows tell of the pointer, they are all of the place.
  EXPECT_EQ(shelfStrip(below.front()), (Rect{600, 866, 400, 4}));
  EXPECT_EQ(shelfStrip(plain), (Rect{600, 899, 400, 1}));
}

TEST(EdgeDwell, ItAsksOncePerVisit) {
  EdgeDwell dwell;
  const auto at = [&](double seconds, Point pointer) {
    return dwell.update(pointer, {&plain, 1}, advanced(start, Seconds(seconds)));
  };
  EXPECT_FALSE(at(0, {800, 900}));
  EXPECT_TRUE(dwell.isWaiting());
  EXPECT_TRUE(at(0.3, {800, 900}));
  EXPECT_FALSE(at(5, {800, 900}));
  EXPECT_FALSE(dwell.isWaiting());
  EXPECT_FALSE(at(6, {800, 500}));
  EXPECT_FALSE(at(7, {800, 900}));
  EXPECT_TRUE(at(8, {800, 900}));
}

}  // namespace
}  // namespace ambrel
