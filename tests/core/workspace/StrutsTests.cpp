#include <gtest/gtest.h>

#include "core/base/Geometry.h"
#include "core/workspace/Struts.h"

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

Strut bottom(std::uint32_t depth, std::uint32_t start, std::uint32_t end) {
  return {.bottom = depth, .bottomStart = start, .bottomEnd = end};
}

Strut left(std::uint32_t depth, std::uint32_t start, std::uint32_t end) {
  return {.left = depth, .leftStart = start, .leftEnd = end};
}

TEST(Struts, TwelveNumbersOrFour) {
  const std::vector<std::uint32_t> twelve{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  const auto partial = parseStrut(twelve);
  ASSERT_TRUE(partial);
  EXPECT_EQ(partial->top, 3u);
  EXPECT_EQ(partial->bottomStart, 11u);
  EXPECT_EQ(partial->bottomEnd, 12u);
  const auto whole = parseStrut(std::span(twelve).first(4));
  ASSERT_TRUE(whole);
  EXPECT_EQ(whole->bottom, 4u);
  EXPECT_GT(whole->bottomEnd, 100000u);
  EXPECT_FALSE(parseStrut(std::span(twelve).first(3)));
}

TEST(Struts, AWorkAreaCountsForTheScreenItBelongsTo) {
  const Rect screen{1600, 0, 1280, 800};
  EXPECT_EQ(outsideWorkArea(screen, {1600, 32, 1280, 700}), (Insets{0, 32, 0, 68}));
  EXPECT_EQ(outsideWorkArea(screen, {0, 32, 1600, 868}), Insets{}) << "of the screen beside it";
  EXPECT_EQ(combined({1, 20, 3, 4}, {10, 2, 30, 0}), (Insets{10, 20, 30, 4}));
}

// Two screens side by side; the second is lower and ends above the lower edge of the desktop.
constexpr Rect first{0, 0, 1600, 900};
constexpr Rect second{1600, 100, 1280, 720};
constexpr double desktopWidth = 2880;
constexpr double desktopHeight = 900;

TEST(Struts, CountWhereTheyReach) {
  const Strut top{.top = 130, .topStart = 1600, .topEnd = 2879}, right{.right = 40, .rightStart = 100, .rightEnd = 819};
  using Row = std::tuple<const char*, Strut, Insets, Insets>;
  for (const auto& [what, strut, onFirst, onSecond] :
       {Row{"a panel below the first screen", bottom(30, 0, 1599), {0, 0, 0, 30}, {}},
        Row{"a panel below the second screen is measured from the desktop's edge",
            bottom(110, 1600, 2879),
            {},
            {0, 0, 0, 30}},
        Row{"a panel below both", bottom(30, 0, 2879), {0, 0, 0, 30}, {}},
        Row{"a range of zeroes means the whole edge", bottom(110, 0, 0), {0, 0, 0, 110}, {0, 0, 0, 30}},
        Row{"one pixel into the second screen", bottom(90, 1000, 1600), {0, 0, 0, 90}, {0, 0, 0, 10}},
        Row{"a panel above the second screen", top, {}, {0, 30, 0, 0}},
        Row{"a panel at the right", right, {}, {0, 0, 40, 0}},
        Row{"a panel at the left", left(64, 0, 899), {64, 0, 0, 0}, {}},
        Row{"a panel at the inner left edge of the second screen does not swallow the first",
            left(1650, 100, 819),
            {},
            {50, 0, 0, 0}},
        Row{"a range that ends before it starts", bottom(30, 50, 10), {}, {}}, Row{"nothing", Strut{}, {}, {}}}) {
    EXPECT_EQ(reservedEdges(first, desktopWidth, desktopHeight, {strut}), onFirst) << what;
    EXPECT_EQ(reservedEdges(second, desktopWidth, desktopHeight, {strut}), onSecond) << what;
  }
  EXPECT_EQ(reservedEdges(first, desktopWidth, desktopHeight, {bottom(30, 0, 99), bottom(48, 200, 300), left(7, 0, 0)}),
            (Insets{7, 0, 0, 48}))
      << "the deepest on an edge counts";
}

}  // namespace
}  // namespace ambrel
