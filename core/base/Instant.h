#pragma once
// A point in time, in microseconds since 1970-01-01T00:00:00Z, and its text forms.

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

using Instant = std::chrono::sys_time<std::chrono::microseconds>;
// A span in seconds, with fractions; what thresholds and ages are given in.
using Seconds = std::chrono::duration<double>;

// Seconds since 1970, rounded to the nearest microsecond; values that do not fit are clamped, no number gives 1970.
Instant instantFromUnixSeconds(double seconds);
double unixSeconds(Instant instant);
Instant instantFromUnixMilliseconds(std::int64_t milliseconds);

// later - earlier, in seconds.
Seconds secondsBetween(Instant earlier, Instant later);
// `seconds` is rounded to the nearest microsecond.
Instant advanced(Instant instant, Seconds seconds);

// "2026-11-21T09:00:00Z", with a fraction only when there is one ("2026-11-21T09:00:00.25Z").
std::string iso8601(Instant instant);

// ISO 8601 date and time with a zone ("Z", "+02:00", "+0200"), with or without a fraction of up to
// nine digits. Years 0001 to 9999. Anything else is absent.
std::optional<Instant> parseISO8601(std::string_view text);

}  // namespace ambrel
