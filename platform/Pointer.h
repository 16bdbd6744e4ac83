#pragma once
// Where the pointer is, and a way to sleep until it moves.

#include <functional>
#include <optional>
#include <vector>

#include "core/base/Geometry.h"

namespace ambrel {

// Where the pointer is when it is known alone that it is over no window of ours.
inline constexpr Point beyondAllScreens{-1e6, -1e6};

class PointerMonitor {
 public:
  virtual ~PointerMonitor() = default;

  // With y upwards, wherever on the desktop the pointer is; absent when it cannot be told; `beyondAllScreens` where
  // it can be told over windows of ours alone.
  virtual std::optional<Point> location() const = 0;

  // Whether a button is held down.
  virtual bool isPressed() const = 0;

  // Calls `onMove` once, on the main thread, at the next movement of a pointing device; then it is quiet until
  // asked again. A newer call replaces an older one. While nothing is asked, a moving pointer costs nothing.
  // Answers false when movements cannot be watched: the caller then has to look at `location` by itself.
  // Movements that a program makes (a warped pointer) are not seen; a slow look now and then covers them.
  virtual bool wakeOnMove(std::function<void()> onMove) = 0;
  // `onPress` is called on the main thread at each press of a button, wherever it is, until null takes its place.
  virtual void setPressHandler(std::function<void()> onPress) = 0;
  // At the edges of screens, where the pointer is to be told of although it is over a window of others; with y upwards,
  // empty for nowhere. A desktop that always tells where the pointer is has nothing to do for it. One that does not
  // puts something there, which takes the clicks.
  virtual void setStrips(std::vector<Rect> strips) = 0;
  // Forgets what `wakeOnMove` asked.
  virtual void stopWaiting() = 0;
};

}  // namespace ambrel
