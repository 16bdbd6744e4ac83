#include "core/telemetry/DisplayText.h"

#include <cmath>
#include <fmt/format.h>

namespace ambrel {

std::string DisplayText::refreshRate(double hertz) {
  if (!(hertz > 0)) return "—";
  return fmt::format("{:.0f} Hz", std::round(hertz));
}

std::string DisplayText::scale(double scale) { return fmt::format("@{:g}x", std::round(scale * 10) / 10); }

}  // namespace ambrel
