// What Claude Code hands to a status line, of any bytes.

#include <cmath>
#include <string_view>

#include "core/usage.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static LineParser parser;
  const auto object = parser.parse({reinterpret_cast<const char*>(data), size});
  const auto limits = object ? ClaudeLimits::parse(*object, Instant{}) : std::nullopt;
  if (!limits) return 0;
  if (!limits->session && !limits->week) __builtin_trap();
  for (const auto& window : {limits->session, limits->week})
    if (window && !std::isfinite(window->usedPercent)) __builtin_trap();
  return 0;
}
