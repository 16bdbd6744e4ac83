#pragma once
// Unix time and dates, both ways.

#include <optional>
#include <string_view>

#include "core/base/Calendar.h"

namespace ambrel {

enum class UnixUnit { seconds, milliseconds, microseconds, nanoseconds };

struct ReadTime {
  Instant instant{};
  std::optional<UnixUnit> unit;  // of a number; absent for a date
  friend bool operator==(const ReadTime&, const ReadTime&) = default;
};

// A number is taken for seconds since 1970, with or without a fraction; from 12 digits on for milliseconds, from 15 on
// for microseconds and from 18 on for nanoseconds. A date is ISO 8601 with a zone, or without one in the calendar's:
// "2026-11-22", "2026-11-22 14:30", "2026-11-22T14:30:05". Years 0001 to 9999; absent for anything else.
std::optional<ReadTime> readTime(std::string_view text, const Calendar& calendar);

}  // namespace ambrel
