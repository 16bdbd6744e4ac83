#pragma once
// Batteries and the adapter.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/base/EnumText.h"

namespace ambrel {

enum class BatteryCondition { normal, serviceRecommended };
// Of all batteries of the computer together.
struct BatteryHealth {
  int cycleCount = 0;                       // of the battery that has the most; 0 where none counts them
  std::optional<int> maximumCapacity = {};  // percent of what they held when new; absent where they do not tell
  BatteryCondition condition = BatteryCondition::normal;
  friend bool operator==(const BatteryHealth&, const BatteryHealth&) = default;
};
// Below this capacity a battery should be looked after.
inline constexpr int serviceCapacity = 80;

struct BatteryHealthReading {
  std::optional<BatteryHealth> health = {};  // absent for a computer without a battery
  friend bool operator==(const BatteryHealthReading&, const BatteryHealthReading&) = default;
};

struct PowerReading {
  std::optional<int> adapterWatts = {};  // what the adapter can give
  bool isOnAdapter = false;
  bool isCharging = false;
  bool isCharged = false;
  std::optional<int> percent = {};  // of all batteries together; absent without a battery
  std::optional<int> minutesToEmpty = {};
  std::optional<int> minutesToFull = {};
  friend bool operator==(const PowerReading&, const PowerReading&) = default;
};

namespace PowerText {

// "Fully charged", "Not charging", "Calculating…", "Full in 1:05", "3:20 left"
std::string stateLine(const PowerReading& reading);

}  // namespace PowerText

}  // namespace ambrel
