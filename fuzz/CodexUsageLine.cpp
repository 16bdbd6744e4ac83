// A line of a Codex log, of any bytes.

#include <cmath>
#include <string_view>

#include "core/usage.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static LineParser parser;
  const auto line = parser.parse({reinterpret_cast<const char*>(data), size});
  const auto limits = line ? CodexUsage::parseLine(*line) : std::nullopt;
  if (limits && (!std::isfinite(limits->session.usedPercent) || !parseISO8601(iso8601(limits->asOf)))) __builtin_trap();
  return 0;
}
