#pragma once
// The time of day, and being woken at one.

#include <functional>
#include <optional>

#include "core/base/Instant.h"

namespace ambrel {

class WallClock {
 public:
  struct Reading {
    Instant now;           // what the clock says; it can be set
    Seconds sinceBoot{0};  // runs evenly, also while the machine sleeps
    Seconds slept{0};      // the part of it that the machine has slept
  };

  virtual ~WallClock() = default;

  virtual Reading read() const = 0;
  // `handler` is called at that time, or once the machine is awake again, and whenever the clock is set. A time that
  // has passed counts as now. Each call replaces the one before; without a time only changes of the clock are told.
  virtual void wakeAt(std::optional<Instant> time, std::function<void()> handler) = 0;
};

}  // namespace ambrel
