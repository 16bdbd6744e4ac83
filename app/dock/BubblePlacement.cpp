#include "app/dock/BubblePlacement.h"

#include <algorithm>

#include "app/window/PanelGeometry.h"

namespace ambrel {

BubblePlacement placedBubble(QSize size, const QRect& tile, const QRect& bar, const QRect& screen, DockEdge edge,
                             BubbleTail tail) {
  const bool isRow = edge == DockEdge::bottom;
  const auto start = [isRow](const QRect& rect) { return isRow ? rect.x() : rect.y(); };
  const auto extent = [isRow](const QRect& rect) { return isRow ? rect.width() : rect.height(); };
  const QRect about = tile.isEmpty() ? bar : tile;
  const int middle = start(about) + extent(about) / 2, length = isRow ? size.width() : size.height();
  const QRect overBar = bar.intersected(screen).adjusted(panelGap, panelGap, -panelGap, -panelGap);
  int at = middle - length / 2;
  if (extent(overBar) >= length) at = std::clamp(at, start(overBar), start(overBar) + extent(overBar) - length);
  const auto frame = [&](int reach) {
    const QSize whole = size + (isRow ? QSize(0, reach) : QSize(reach, 0));
    const QRect anchor = isRow ? QRect(at, bar.y(), length, 1) : QRect(bar.x(), at, 1, length);
    return panelFrame(whole, anchor, bar, screen, edge);
  };

  BubblePlacement placed{.frame = frame(0)};
  const int tailAt = middle - start(placed.frame);
  if (tail == BubbleTail::none || tile.isEmpty() || tailAt < tailClearance ||
      tailAt > extent(placed.frame) - tailClearance)
    return placed;
  return {.frame = frame(tailReach), .hasTail = true, .tailAt = tailAt};
}

}  // namespace ambrel
