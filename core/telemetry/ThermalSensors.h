#pragma once
// How hot is too hot.

#include <optional>
#include <string_view>
#include <vector>

#include "core/telemetry/Conditions.h"

namespace ambrel {

// A temperature in degrees Celsius, and those from which on something happens; absent where the sensor has none.
struct ThermalSensor {
  double celsius = 0;
  std::optional<double> warm = {};      // fans speed up
  std::optional<double> slowing = {};   // the processor is slowed down
  std::optional<double> critical = {};  // the processor throttles as hard as it can, or the computer is about to stop
  friend bool operator==(const ThermalSensor&, const ThermalSensor&) = default;
};

// Degrees from a file in thousandths of them. Absent for what no computer survives: sensors that are not there give
// such figures.
std::optional<double> parseMillidegrees(std::string_view text);

// Adds a trip point of a thermal zone: "active", "passive", "hot" or "critical". The lowest of each kind counts.
// userSpace: the zone leaves its cooling to programs, so the kernel slows nothing down at its passive points.
void addTrip(ThermalSensor& sensor, std::string_view type, double celsius, bool userSpace);

// A processor's own sensor with its limit ("crit" of hwmon), 95 degrees where it tells none: it is slowed down a little
// below it.
ThermalSensor processorSensor(double celsius, std::optional<double> limit);

// The worst level and the hottest temperature; absent without a sensor.
std::optional<ThermalReading> thermalReading(const std::vector<ThermalSensor>& sensors);

}  // namespace ambrel
