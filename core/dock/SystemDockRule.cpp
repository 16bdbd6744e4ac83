#include "core/dock.h"

namespace ambrel {

bool SystemDockRule::update(double distance, Instant now) {
  const bool was = isShowing;
  if (distance <= BarReveal::revealDistance) {
    isShowing = true;
    leftAt.reset();
  } else if (!isShowing) {
    return false;
  } else if (distance < dockBand) {
    leftAt.reset();
  } else if (leftAt) {
    if (secondsBetween(*leftAt, now) > returnDelay) {
      isShowing = false;
      leftAt.reset();
    }
  } else {
    leftAt = now;
  }
  return isShowing != was;
}

std::optional<Instant> SystemDockRule::waitsUntil() const {
  if (!leftAt) return std::nullopt;
  // At the delay itself the system Dock still counts as shown.
  return advanced(*leftAt, returnDelay) + std::chrono::microseconds(1);
}

}  // namespace ambrel
