#pragma once
// Where Buddy's bubble is placed beside the bar. Qt's coordinates: y grows downwards; logical pixels.

#include <QRect>

#include "core/dock.h"

namespace ambrel {

// How far the tail reaches beyond the bubble, and how far from its corners it has to begin.
inline constexpr int tailReach = 13, tailClearance = 30;

struct BubblePlacement {
  QRect frame;  // with the tail
  bool hasTail = false;
  int tailAt = 0;  // where it points: from the frame's left edge, or from its upper one beside an upright bar
  friend bool operator==(const BubblePlacement&, const BubblePlacement&) = default;
};

// Whether a bubble has a tail, where there is a tile to point at.
enum class BubbleTail { pointing, none };

// A bubble of `size`, without its tail, between the bar and the rest of `screen`. It covers the bar rather than
// beyond its ends, as near to the middle of `tile` as that and the screen allow. Without a tile (empty) it is placed
// over the bar's middle and has no tail; nor has it one when the tile is out of the tail's reach.
BubblePlacement placedBubble(QSize size, const QRect& tile, const QRect& bar, const QRect& screen, DockEdge edge,
                             BubbleTail tail = BubbleTail::pointing);

}  // namespace ambrel
