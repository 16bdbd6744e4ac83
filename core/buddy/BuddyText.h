#pragma once
// How the notices write spans and times.

#include <algorithm>

#include "core/base/Instant.h"
#include "core/base/Text.h"

namespace ambrel {

// Truncated, and at least 1.
inline std::int64_t wholeMinutes(Seconds span) {
  return std::max<std::int64_t>(1, static_cast<std::int64_t>(span.count() / 60));
}

// As part of a notice's id: "1795262400.0".
inline std::string idTime(Instant instant) { return shortestDecimal(unixSeconds(instant)); }

}  // namespace ambrel
