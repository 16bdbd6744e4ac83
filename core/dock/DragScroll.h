#pragma once
// A bar that is longer than its place scrolls while a tile is held near one of its ends.

#include <algorithm>

namespace ambrel {

// How far it goes at a tick, in logical pixels; below zero towards the bar's beginning. at: the pointer along the bar,
// from the beginning of what can be seen of it; length: of that.
constexpr double dragScroll(double at, double length) {
  constexpr double reach = 48, fastest = 16;
  const double nearest = std::min(at, length - at);
  const double speed = fastest * (1 - std::clamp(nearest / reach, 0.0, 1.0));
  return at < length / 2 ? -speed : speed;
}

}  // namespace ambrel
