#include <algorithm>

#include "core/dock.h"

namespace ambrel {
namespace {

// How much of an edge the panels of others keep.
double reserved(double depth) {
  // Less is no Dock but a rounding of the screen's scale.
  constexpr double leastReserved = 4.0;
  return depth > leastReserved ? depth : 0;
}

}  // namespace

BarPlacement placedBar(const ScreenFrames& screen, DockEdge edge, double width, double height, bool isSystemDockShowing,
                       double systemDockHeight) {
  constexpr double freeLength = 40;
  const Rect &frame = screen.frame, &visible = screen.visibleFrame;
  const double room = edge == DockEdge::bottom ? visible.width : visible.height;
  BarPlacement placement{.maxLength = std::max(0.0, room - freeLength), .frame = {0, 0, width, height}};
  switch (edge) {
    case DockEdge::bottom:
      placement.frame.x = frame.midX() - width / 2;
      placement.frame.y = frame.minY() + BarPlacement::margin;
      if (const double kept = reserved(visible.minY() - frame.minY()); kept > 0)
        placement.frame.y += kept;
      else if (isSystemDockShowing)
        placement.frame.y += systemDockHeight;
      break;
    case DockEdge::left:
      placement.frame.x = frame.minX() + reserved(visible.minX() - frame.minX()) + BarPlacement::margin;
      placement.frame.y = frame.midY() - height / 2;
      break;
    case DockEdge::right:
      placement.frame.x = frame.maxX() - reserved(frame.maxX() - visible.maxX()) - BarPlacement::margin - width;
      placement.frame.y = frame.midY() - height / 2;
      break;
  }
  return placement;
}

}  // namespace ambrel
