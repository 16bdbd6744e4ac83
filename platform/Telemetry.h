#pragma once
// Readings of the computer's parts that are asked for now and then, when a tile shows them.

#include <optional>
#include <vector>

#include "core/telemetry.h"

namespace ambrel {

// Every call may wait for a device or another process: not for the main thread. Different readings may be asked for at
// the same time, from several threads. Absent: this computer has no such part, or it cannot be asked. Nothing is
// logged about that, and nothing is woken up to be measured.
class Telemetry {
 public:
  virtual ~Telemetry() = default;

  // The busiest graphics processor, 0 to 1. Those that are asleep count as idle; absent where none can be read.
  virtual std::optional<double> gpu() = 0;
  virtual std::optional<PressureReading> pressure() = 0;
  virtual std::optional<DiskCounters> diskCounters() = 0;
  virtual std::optional<ProcessSnapshot> processes() = 0;
  // With no `health` where there is no battery; absent where that cannot be told.
  virtual std::optional<BatteryHealthReading> batteryHealth() = 0;
  // A computer without a battery is on its adapter and has no percent.
  virtual std::optional<PowerReading> power() = 0;
  virtual std::optional<ThermalReading> thermal() = 0;
  // Absent without Wi-Fi hardware.
  virtual std::optional<WiFiReading> wifi() = 0;
  // External drives and network folders, by name.
  virtual std::optional<std::vector<VolumeInfo>> volumes() = 0;
  // The most useful first (`rankedAddresses`); empty while there is no connection.
  virtual std::vector<NetworkAddress> addresses() = 0;
};

}  // namespace ambrel
