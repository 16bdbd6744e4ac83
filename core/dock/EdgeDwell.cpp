#include "core/dock/EdgeDwell.h"

#include <algorithm>
#include <cmath>

namespace ambrel {
namespace {

// How long a pointer has to rest where it is; nothing outside the zone.
std::optional<Seconds> neededRest(Point pointer, std::span<const ScreenFrames> screens) {
  const auto screen = std::find_if(screens.begin(), screens.end(),
                                   [&](const ScreenFrames& one) { return one.frame.contains(pointer, true); });
  if (screen == screens.end()) return std::nullopt;
  const double reach = screen->frame.width * EdgeDwell::share / 2;
  if (std::abs(pointer.x - screen->frame.midX()) > reach) return std::nullopt;
  const double upper = screen->visibleFrame.maxY();
  const bool hasPanel = upper < screen->frame.maxY();
  const double depth = hasPanel ? EdgeDwell::depthBelowPanel : EdgeDwell::depth;
  if (pointer.y > upper || upper - pointer.y > depth) return std::nullopt;
  return hasPanel ? EdgeDwell::dwellBelowPanel : EdgeDwell::dwell;
}

}  // namespace

bool EdgeDwell::update(std::optional<Point> pointer, std::span<const ScreenFrames> screens, Instant now) {
  const auto needed = pointer ? neededRest(*pointer, screens) : std::nullopt;
  if (!needed) {
    since_.reset();
    hasAsked_ = false;
    return false;
  }
  if (!since_) since_ = now;
  if (hasAsked_ || secondsBetween(*since_, now) < *needed) return false;
  hasAsked_ = true;
  return true;
}

}  // namespace ambrel
