#include <algorithm>

#include "core/dock.h"

namespace ambrel {
namespace {

// Less is no Dock but a rounding of the screen's scale, or the strip of one that is hidden.
constexpr double leastReserved = 4.0;

// How much of an edge the panels of others keep.
double reserved(double depth) { return depth > leastReserved ? depth : 0; }

// In the middle of the edge, but clear of the panels at its ends where there is room enough.
double centred(double middle, double length, double low, double high) {
  const double start = middle - length / 2;
  return length > high - low ? start : std::clamp(start, low, high - length);
}

}  // namespace

BarPlacement placedBar(const ScreenFrames& screen, DockEdge edge, double width, double height, bool isSystemDockShowing,
                       double systemDockHeight) {
  constexpr double freeLength = 40;
  const Rect &frame = screen.frame, &visible = screen.visibleFrame;
  const double room = edge == DockEdge::bottom ? visible.width : visible.height;
  BarPlacement placement{
      .maxLength = std::max(0.0, room - freeLength), .frame = {0, 0, width, height}, .room = visible};
  switch (edge) {
    case DockEdge::bottom:
      placement.frame.x = centred(frame.midX(), width, visible.minX(), visible.maxX());
      placement.frame.y = frame.minY() + BarPlacement::margin;
      if (const double kept = reserved(visible.minY() - frame.minY()); kept > 0)
        placement.frame.y += kept;
      else if (isSystemDockShowing)
        placement.frame.y += systemDockHeight;
      placement.room.y = std::max(placement.frame.y - BarPlacement::margin, frame.minY() + leastReserved);
      placement.room.height = visible.maxY() - placement.room.y;
      break;
    case DockEdge::left:
      placement.frame.x = frame.minX() + reserved(visible.minX() - frame.minX()) + BarPlacement::margin;
      placement.frame.y = centred(frame.midY(), height, visible.minY(), visible.maxY());
      placement.room.x = std::max(placement.frame.x - BarPlacement::margin, frame.minX() + leastReserved);
      placement.room.width = visible.maxX() - placement.room.x;
      break;
    case DockEdge::right: {
      const double kept = reserved(frame.maxX() - visible.maxX());
      placement.frame.x = frame.maxX() - kept - BarPlacement::margin - width;
      placement.frame.y = centred(frame.midY(), height, visible.minY(), visible.maxY());
      placement.room.width = frame.maxX() - std::max(kept, leastReserved) - placement.room.x;
      break;
    }
  }
  return placement;
}

}  // namespace ambrel
