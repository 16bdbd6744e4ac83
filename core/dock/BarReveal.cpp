#include <algorithm>

#include "core/dock.h"

namespace ambrel {
namespace {

double edgeDistance(const BarSurroundings& around) {
  switch (around.edge) {
    case DockEdge::bottom:
      return around.pointer.y - around.screen.minY();
    case DockEdge::left:
      return around.pointer.x - around.screen.minX();
    case DockEdge::right:
      return around.screen.maxX() - around.pointer.x;
  }
  return 0;
}

// A pointer on the last pixel of a screen may be given as its upper bound.
bool isOnScreen(const BarSurroundings& around) { return around.screen.contains(around.pointer, true); }

bool isInZone(const BarSurroundings& around) {
  return hoverZone(around.bar, around.screen, around.edge).contains(around.pointer, true);
}

}  // namespace

Rect hoverZone(const Rect& bar, const Rect& screen, DockEdge edge) {
  constexpr double reach = 16;
  const Rect zone = bar.grown(reach);
  double minX = zone.minX(), minY = zone.minY(), maxX = zone.maxX();
  switch (edge) {
    case DockEdge::bottom:
      minY = std::min(minY, screen.minY());
      break;
    case DockEdge::left:
      minX = std::min(minX, screen.minX());
      break;
    case DockEdge::right:
      maxX = std::max(maxX, screen.maxX());
      break;
  }
  return {minX, minY, maxX - minX, zone.maxY() - minY};
}

bool BarReveal::tick(const BarSurroundings& around, Instant now) {
  if (around.isAlwaysVisible) return false;
  bool isDue = false;
  const bool isAtEdge = isOnScreen(around) && edgeDistance(around) <= revealDistance;
  if (!isAtEdge || isInZone(around)) isEdgeSpent = false;
  if (!isRevealed && isAtEdge && !isEdgeSpent) {
    reveal();
    isDue = true;
  }
  if (!isRevealed) {
    outsideSince.reset();
    return isDue;
  }
  if (peekUntil) {
    if (now < *peekUntil) return isDue;
    peekUntil.reset();
  }
  if (around.isHeldOpen || isInZone(around)) {
    outsideSince.reset();
    return isDue;
  }
  if (!outsideSince) outsideSince = now;
  if (secondsBetween(*outsideSince, now) < hideDelay) return isDue;
  isRevealed = false;
  isEdgeSpent = isAtEdge;
  outsideSince.reset();
  return true;
}

std::optional<Instant> BarReveal::waitsUntil(const BarSurroundings& around) const {
  if (around.isAlwaysVisible || !isRevealed) return std::nullopt;
  if (peekUntil) return peekUntil;
  if (outsideSince) return advanced(*outsideSince, hideDelay);
  return std::nullopt;
}

Instant BarReveal::peek(Seconds length, Instant now) {
  const Instant until = advanced(now, length);
  peekUntil = until;
  reveal();
  return until;
}

bool BarReveal::endPeek(Instant until) {
  if (peekUntil != until) return false;
  peekUntil.reset();
  return true;
}

void BarReveal::reveal() {
  isRevealed = true;
  outsideSince.reset();
}

std::optional<Instant> nextTick(Instant lastTick, bool isPointerMoving,
                                std::span<const std::optional<Instant>> deadlines) {
  const Instant soonest = advanced(lastTick, BarReveal::tickInterval);
  if (isPointerMoving) return soonest;
  std::optional<Instant> first;
  for (const auto& deadline : deadlines)
    if (deadline && (!first || *deadline < *first)) first = deadline;
  return first ? std::optional(std::max(*first, soonest)) : std::nullopt;
}

}  // namespace ambrel
