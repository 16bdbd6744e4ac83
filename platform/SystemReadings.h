#pragma once
// The counters of the computer that the bar's system tiles are made from.

#include <optional>

#include "core/telemetry.h"

namespace ambrel {

class SystemReadings {
 public:
  virtual ~SystemReadings() = default;

  virtual std::optional<ProcessorTicks> processor() const = 0;
  virtual std::optional<MemoryReading> memory() const = 0;
  // Hardware interfaces alone: what a bridge or a tunnel carries has passed one of them already.
  virtual NetworkCounters network() const = 0;
  // The volume that the system starts from. May wait for the disk: not for the main thread.
  virtual std::optional<VolumeSizes> startUpVolume() const = 0;
  // Since the computer started, sleep included; rates are computed with it.
  virtual Seconds sinceBoot() const = 0;
};

}  // namespace ambrel
