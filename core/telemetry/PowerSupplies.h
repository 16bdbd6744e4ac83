#pragma once
// What the kernel's power supplies, or UPower's devices, say together.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/telemetry/Power.h"

namespace ambrel {

// One battery or adapter. Energies in watt-hours, rates in watts, times in seconds.
struct PowerSupply {
  enum class Kind { battery, adapter, other };
  enum class Status { unknown, charging, discharging, notCharging, full };

  std::string name = {};
  Kind kind = Kind::other;
  bool isOfDevice = false;  // of a mouse or a headset: it does not feed the computer
  bool isPresent = true;
  bool isOnline = false;  // of an adapter: it gives power
  Status status = Status::unknown;
  bool hasFailed = false;  // it says so itself
  std::optional<double> percent = {};
  std::optional<double> energy = {}, energyFull = {}, energyDesign = {};
  std::optional<double> rate = {};  // in or out, as `status` says
  std::optional<double> secondsToEmpty = {}, secondsToFull = {};
  std::optional<double> adapterWatts = {};
  int cycles = 0;
  friend bool operator==(const PowerSupply&, const PowerSupply&) = default;
};

// The file "uevent" of /sys/class/power_supply/NAME, whose lines read POWER_SUPPLY_KEY=value, in millionths of the
// units above. Older kernels keep the type and the scope in files of their own, which are read where it lacks them.
// A battery that counts charge instead of energy is taken at its nominal voltage. Absent without a type.
std::optional<PowerSupply> parsePowerSupply(std::string_view uevent, std::string_view type = {},
                                            std::string_view scope = {});

// Several batteries count as one that holds what they hold together.
PowerReading powerReading(const std::vector<PowerSupply>& supplies);
BatteryHealthReading batteryHealth(const std::vector<PowerSupply>& supplies);
// Whether a battery of the computer is among them.
bool hasBattery(const std::vector<PowerSupply>& supplies);

}  // namespace ambrel
