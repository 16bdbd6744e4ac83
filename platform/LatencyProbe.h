#pragma once
// How long it takes to reach the Internet.

#include "core/telemetry.h"

namespace ambrel {

class LatencyProbe {
 public:
  virtual ~LatencyProbe() = default;

  // One connection, made and closed again. Waits for its answer, at most as long as the implementation's time-out: not
  // for the main thread.
  virtual LatencyCheck probe() = 0;
};

}  // namespace ambrel
