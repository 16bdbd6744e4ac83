#include "core/disk/Sunburst.h"

namespace ambrel {
namespace {

void addRing(const SunburstSegment& parent, int rings, double smallest, std::vector<SunburstSegment>& segments) {
  if (parent.ring + 1 >= rings || parent.item->size() <= 0) return;
  const double turnsPerByte = parent.sweep / static_cast<double>(parent.item->size());
  double start = parent.start;
  int rank = 0;
  for (const DiskItem& child : parent.item->children()) {
    SunburstSegment segment{.item = &child,
                            .ring = parent.ring + 1,
                            .start = start,
                            .sweep = static_cast<double>(child.size()) * turnsPerByte,
                            .branch = parent.ring < 0 ? rank++ : parent.branch};
    start += segment.sweep;
    const bool isFolded = child.kind() == DiskItem::Kind::smallItems && segment.ring > 0;
    if (segment.sweep < smallest || isFolded) continue;
    segments.push_back(segment);
    addRing(segment, rings, smallest, segments);
  }
}

}  // namespace

std::vector<SunburstSegment> sunburst(const DiskItem& center, int rings, double smallest) {
  std::vector<SunburstSegment> segments;
  addRing({.item = &center, .ring = -1, .start = 0, .sweep = 1}, rings, smallest, segments);
  return segments;
}

const SunburstSegment* segmentAt(const std::vector<SunburstSegment>& segments, int ring, double turn) {
  for (const SunburstSegment& segment : segments)
    if (segment.ring == ring && turn >= segment.start && turn < segment.start + segment.sweep) return &segment;
  return nullptr;
}

const SunburstSegment* neighbour(const std::vector<SunburstSegment>& segments, const SunburstSegment& from,
                                 SunburstStep step) {
  std::vector<const SunburstSegment*> ring;
  std::size_t at = 0;
  for (const SunburstSegment& other : segments) {
    if (step == SunburstStep::inwards && other.item == from.item->parent()) return &other;
    if (step == SunburstStep::outwards && other.item->parent() == from.item) return &other;
    if (other.ring != from.ring) continue;
    if (&other == &from) at = ring.size();
    ring.push_back(&other);
  }
  if (step == SunburstStep::inwards || step == SunburstStep::outwards) return nullptr;
  return ring[(at + (step == SunburstStep::clockwise ? 1 : ring.size() - 1)) % ring.size()];
}

}  // namespace ambrel
