#pragma once
// A size tree around a centre: rings of arcs, each as long as its share.

#include <vector>

#include "core/disk/DiskItem.h"

namespace ambrel {

struct SunburstSegment {
  const DiskItem* item = nullptr;
  int ring = 0;  // 0 is the innermost
  // In turns, clockwise from twelve o'clock.
  double start = 0, sweep = 0;
  // The rank, among the centre's children, of the child that the segment belongs to; 0 is the largest.
  int branch = 0;
};

// The children of `center` in ring 0, theirs in ring 1, and so on, parents before children. Arcs below `smallest`
// turns are left out, and folded items beyond the innermost ring.
std::vector<SunburstSegment> sunburst(const DiskItem& center, int rings, double smallest);

// The segment at that place, if there is one.
const SunburstSegment* segmentAt(const std::vector<SunburstSegment>& segments, int ring, double turn);

// Where a step leads: around the ring, to the largest part of the segment, or to the whole that it is a part of. Null
// where there is nothing.
enum class SunburstStep { clockwise, counterclockwise, outwards, inwards };
const SunburstSegment* neighbour(const std::vector<SunburstSegment>& segments, const SunburstSegment& from,
                                 SunburstStep step);

}  // namespace ambrel
