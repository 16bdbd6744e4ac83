#include <gtest/gtest.h>

#include "core/dock.h"

namespace ambrel {
namespace {

struct Case {
  const char* what;
  ScreenFrames screen;
  DockEdge edge;
  bool isSystemDockShowing;
  double maxLength;
  Point origin;
};

TEST(BarPlacement, IsEightFromItsEdgeInTheMiddleOfIt) {
  constexpr Rect whole{0, 0, 1600, 900};
  const Case cases[] = {
      {"a bare screen", {whole, whole}, DockEdge::bottom, false, 1560, {400, 8}},
      {"a panel at the top", {whole, {0, 0, 1600, 870}}, DockEdge::bottom, false, 1560, {400, 8}},
      {"a Dock that comes", {whole, whole}, DockEdge::bottom, true, 1560, {400, 84}},
      {"a Dock that stays", {whole, {0, 60, 1600, 840}}, DockEdge::bottom, false, 1560, {400, 68}},
      {"four reserved are none", {whole, {0, 4, 1600, 896}}, DockEdge::bottom, false, 1560, {400, 8}},
      {"more than four are", {whole, {0, 4.5, 1600, 895.5}}, DockEdge::bottom, true, 1560, {400, 12.5}},
      {"a panel at the side", {whole, {64, 0, 1536, 900}}, DockEdge::bottom, false, 1496, {400, 8}},
      {"the left edge", {whole, {0, 60, 1600, 810}}, DockEdge::left, true, 770, {8, 410}},
      {"the right edge", {whole, {0, 60, 1600, 810}}, DockEdge::right, false, 770, {792, 410}},
      {"a panel at the left edge", {whole, {64, 0, 1536, 900}}, DockEdge::left, false, 860, {72, 410}},
      {"a panel at the right edge", {whole, {0, 0, 1536, 900}}, DockEdge::right, false, 860, {728, 410}},
      {"another origin",
       {{-1920, 300, 1920, 1080}, {-1920, 340, 1920, 1040}},
       DockEdge::bottom,
       false,
       1880,
       {-1360, 348}},
      {"another origin, right",
       {{-1920, 300, 1920, 1080}, {-1920, 300, 1920, 1080}},
       DockEdge::right,
       false,
       1040,
       {-808, 800}},
      {"no room at all", {{0, 0, 30, 30}, {0, 0, 30, 30}}, DockEdge::bottom, false, 0, {-385, 8}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    const auto placed = placedBar(each.screen, each.edge, 800, 80, each.isSystemDockShowing);
    EXPECT_EQ(placed.maxLength, each.maxLength);
    EXPECT_EQ(placed.frame, (Rect{each.origin.x, each.origin.y, 800, 80}));
  }
  EXPECT_EQ(placedBar({whole, whole}, DockEdge::bottom, 800, 80, true, 48).frame.y, 56) << "above a Dock that was seen";
}

TEST(BarPlacement, ALongBarGivesWayToThePanelsAtTheEndsOfItsEdge) {
  constexpr Rect whole{0, 0, 1600, 900};
  EXPECT_EQ(placedBar({whole, {64, 0, 1536, 900}}, DockEdge::bottom, 1496, 80, false).frame.x, 64);
  EXPECT_EQ(placedBar({whole, {0, 0, 1536, 900}}, DockEdge::bottom, 1496, 80, false).frame.x, 40);
  EXPECT_EQ(placedBar({whole, {0, 0, 1600, 840}}, DockEdge::left, 80, 800, false).frame.y, 40);
}

// Not all window managers let clicks through what is clear of a window.
TEST(BarPlacement, ItsWindowLeavesPanelsAndTheStripOfAHiddenDockFree) {
  constexpr Rect whole{0, 0, 1600, 900}, among{0, 60, 1500, 810};
  const auto room = [](const Rect& visible, DockEdge edge, bool isDockOut = false) {
    return placedBar({whole, visible}, edge, 80, 80, isDockOut, 50).room;
  };
  EXPECT_EQ(room(whole, DockEdge::bottom), (Rect{0, 4, 1600, 896}));
  EXPECT_EQ(room(whole, DockEdge::bottom, true), (Rect{0, 50, 1600, 850}));
  EXPECT_EQ(room(whole, DockEdge::left), (Rect{4, 0, 1596, 900}));
  EXPECT_EQ(room(whole, DockEdge::right), (Rect{0, 0, 1596, 900}));
  EXPECT_EQ(room(among, DockEdge::bottom), among);
  EXPECT_EQ(room(among, DockEdge::right), among);
}

}  // namespace
}  // namespace ambrel
