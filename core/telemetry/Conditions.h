#pragma once
// How hard the computer is pressed: for memory, and by heat.

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/base/EnumText.h"

namespace ambrel {

enum class MemoryPressure { normal, warning, critical };
struct PressureReading {
  MemoryPressure level = MemoryPressure::normal;
  double fraction = 0;  // of the memory that is free to use, 0 to 1
  std::uint64_t swapUsedBytes = 0;
  friend bool operator==(const PressureReading&, const PressureReading&) = default;
};

enum class ThermalLevel { nominal, fair, serious, critical };  // from serious on the processor is slowed down
struct ThermalReading {
  ThermalLevel level = ThermalLevel::nominal;
  std::optional<double> celsius = {};  // of the hottest sensor that counts
  friend bool operator==(const ThermalReading&, const ThermalReading&) = default;
};

}  // namespace ambrel
