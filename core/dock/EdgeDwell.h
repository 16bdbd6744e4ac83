#pragma once
// Whether a pointer that rests in the middle of a screen's upper edge asks for something. Where another program's panel
// is at the edge, a pointer on that is the panel's; the strip right below it counts.

#include <optional>
#include <span>

#include "core/dock.h"

namespace ambrel {

class EdgeDwell {
 public:
  // From the edge, in points; and how much of the edge's length counts.
  static constexpr double depth = 1.5;
  static constexpr double share = 0.25;
  static constexpr Seconds dwell{0.25};
  // Below a panel the pointer has no edge to stop at, and windows have their title bars there.
  static constexpr double depthBelowPanel = 4;
  static constexpr Seconds dwellBelowPanel{0.5};

  // True once for each visit, when the pointer has been there for that long.
  bool update(std::optional<Point> pointer, std::span<const ScreenFrames> screens, Instant now);
  // There, and it has not asked yet.
  bool isWaiting() const { return since_.has_value() && !hasAsked_; }

 private:
  std::optional<Instant> since_;
  bool hasAsked_ = false;
};

}  // namespace ambrel
