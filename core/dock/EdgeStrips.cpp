#include "core/dock/EdgeStrips.h"

#include "core/dock/EdgeDwell.h"

namespace ambrel {

Rect revealStrip(const Rect& bar, const Rect& screen, DockEdge edge) {
  switch (edge) {
    case DockEdge::bottom:
      return {bar.x, screen.minY(), bar.width, 1};
    case DockEdge::left:
      return {screen.minX(), bar.y, 1, bar.height};
    case DockEdge::right:
      return {screen.maxX() - 1, bar.y, 1, bar.height};
  }
  return {};
}

Rect shelfStrip(const ScreenFrames& screen) {
  const double length = screen.frame.width * EdgeDwell::share;
  const double upper = screen.visibleFrame.maxY();
  const double depth = upper < screen.frame.maxY() ? EdgeDwell::depthBelowPanel : 1;
  return {screen.frame.midX() - length / 2, upper - depth, length, depth};
}

}  // namespace ambrel
