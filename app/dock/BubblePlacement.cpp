#include "app/dock/BubblePlacement.h"

#include <algorithm>

#include "app/window/PanelGeometry.h"

namespace ambrel {
namespace {

// A stretch along the bar.
struct Span {
  int low, high;
  int length() const { return high - low; }
};

Span across(const QRect& rect) { return {rect.x(), rect.x() + rect.width()}; }
Span down(const QRect& rect) { return {rect.y(), rect.y() + rect.height()}; }

// The start of a span of `length` centred on `middle`, inside `room`.
int centred(int middle, int length, Span room) {
  return std::max(room.low, std::min(middle - length / 2, room.high - length));
}

}  // namespace

BubblePlacement placedBubble(QSize size, const QRect& tile, const QRect& bar, const QRect& screen, DockEdge edge,
                             BubbleTail tail) {
  const bool isRow = edge == DockEdge::bottom;
  const Span screenSpan = isRow ? across(screen) : down(screen), barSpan = isRow ? across(bar) : down(bar);
  const Span room{screenSpan.low + panelGap, screenSpan.high - panelGap};
  const int length = std::min(isRow ? size.width() : size.height(), room.length());
  const Span overBar{std::max(barSpan.low + panelGap, room.low), std::min(barSpan.high - panelGap, room.high)};
  const QRect about = tile.isEmpty() ? bar : tile;
  const Span aboutSpan = isRow ? across(about) : down(about);
  const int middle = (aboutSpan.low + aboutSpan.high) / 2;
  const int start = centred(middle, length, overBar.length() >= length ? overBar : room);

  BubblePlacement placed;
  placed.tailAt = middle - start;
  placed.hasTail = tail == BubbleTail::pointing && !tile.isEmpty() && placed.tailAt >= tailClearance &&
                   placed.tailAt <= length - tailClearance;
  if (!placed.hasTail) placed.tailAt = 0;
  const int reach = placed.hasTail ? tailReach : 0;
  if (isRow) {
    const int height = std::min(size.height() + reach, bar.y() - panelGap - (screen.y() + panelGap));
    placed.frame = QRect(start, bar.y() - panelGap - height, length, height);
    return placed;
  }
  const bool isLeft = edge == DockEdge::left;
  const int near = isLeft ? bar.x() + bar.width() + panelGap : bar.x() - panelGap;
  const int free = isLeft ? screen.x() + screen.width() - panelGap - near : near - (screen.x() + panelGap);
  const int width = std::min(size.width() + reach, free);
  placed.frame = QRect(isLeft ? near : near - width, start, width, length);
  return placed;
}

}  // namespace ambrel
