#pragma once
// Follows a system Dock that hides by itself, by the pointer alone.

#include <functional>
#include <optional>

#include "core/dock.h"

namespace ambrel {

class SystemDockWatcher {
 public:
  // Called when the system Dock is taken to have come or gone.
  std::function<void(bool isShowing)> onChange;
  // Whether there is one at all; a desktop without a hiding dock at its bottom edge leaves the bar where it stands.
  std::function<bool()> isPresent = [] { return false; };

  bool isShowing() const { return rule_.isShowing; }
  std::optional<Instant> waitsUntil() const { return rule_.waitsUntil(); }

  // distance: of the pointer from the screen's bottom edge.
  void tick(double distance, Instant now) {
    if (!rule_.isShowing && (distance > rule_.dockBand || !isPresent())) return;
    if (rule_.update(distance, now) && onChange) onChange(rule_.isShowing);
  }

 private:
  SystemDockRule rule_;
};

}  // namespace ambrel
