#include <algorithm>

#include "core/dock.h"

namespace ambrel {
namespace {

// The bar at the bottom is above this line.
double baseLine(const ScreenFrames& screen, bool isSystemDockShowing) {
  // Less is no Dock but a rounding of the screen's scale.
  constexpr double leastReserved = 4.0;
  const double bottom = screen.frame.minY();
  if (screen.visibleFrame.minY() > bottom + leastReserved) return screen.visibleFrame.minY();
  return isSystemDockShowing ? bottom + BarPlacement::systemDockHeight : bottom;
}

}  // namespace

BarPlacement placedBar(const ScreenFrames& screen, DockEdge edge, double width, double height,
                       bool isSystemDockShowing) {
  constexpr double freeLength = 40;
  const Rect& frame = screen.frame;
  const double room = edge == DockEdge::bottom ? screen.visibleFrame.width : screen.visibleFrame.height;
  BarPlacement placement{.maxLength = std::max(0.0, room - freeLength), .frame = {0, 0, width, height}};
  switch (edge) {
    case DockEdge::bottom:
      placement.frame.x = frame.midX() - width / 2;
      placement.frame.y = baseLine(screen, isSystemDockShowing) + BarPlacement::margin;
      break;
    case DockEdge::left:
      placement.frame.x = frame.minX() + BarPlacement::margin;
      placement.frame.y = frame.midY() - height / 2;
      break;
    case DockEdge::right:
      placement.frame.x = frame.maxX() - BarPlacement::margin - width;
      placement.frame.y = frame.midY() - height / 2;
      break;
  }
  return placement;
}

}  // namespace ambrel
