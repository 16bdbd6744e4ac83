#include "core/base/Instant.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace ambrel {
namespace {

using namespace std::chrono;

// Reads exactly `digits` decimal digits and removes them from `text`.
std::optional<int> takeNumber(std::string_view& text, std::size_t digits) {
  if (text.size() < digits) return std::nullopt;
  int value = 0;
  for (const char c : text.substr(0, digits)) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  text.remove_prefix(digits);
  return value;
}

bool take(std::string_view& text, char expected) {
  if (text.empty() || text.front() != expected) return false;
  text.remove_prefix(1);
  return true;
}

std::optional<microseconds> takeFraction(std::string_view& text) {
  std::int64_t value = 0;
  int digits = 0;
  while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
    if (digits < 6) value = value * 10 + (text.front() - '0');
    if (++digits > 9) return std::nullopt;
    text.remove_prefix(1);
  }
  if (digits == 0) return std::nullopt;
  for (int i = digits; i < 6; ++i) value *= 10;
  return microseconds(value);
}

// What the zone has to be added to UTC for the local time; the whole rest of the text.
std::optional<minutes> zoneOffset(std::string_view text) {
  if (text == "Z" || text == "z") return minutes(0);
  if (text.empty() || (text.front() != '+' && text.front() != '-')) return std::nullopt;
  const bool isWest = text.front() == '-';
  text.remove_prefix(1);
  const auto hour = takeNumber(text, 2);
  if (!hour || *hour > 23) return std::nullopt;
  int minute = 0;
  if (take(text, ':') || !text.empty()) {
    const auto value = takeNumber(text, 2);
    if (!value || *value > 59 || !text.empty()) return std::nullopt;
    minute = *value;
  }
  const minutes offset = hours(*hour) + minutes(minute);
  return isWest ? -offset : offset;
}

}  // namespace

Instant instantFromUnixSeconds(double seconds) {
  // Beyond this the conversion to microseconds would overflow.
  constexpr double limit = 9.2e12;
  if (std::isnan(seconds)) return Instant{};
  return Instant(microseconds(static_cast<std::int64_t>(std::round(std::clamp(seconds, -limit, limit) * 1e6))));
}

double unixSeconds(Instant instant) { return static_cast<double>(instant.time_since_epoch().count()) / 1e6; }

Instant instantFromUnixMilliseconds(std::int64_t value) {
  constexpr std::int64_t limit = 9'200'000'000'000'000;
  return Instant(milliseconds(std::clamp(value, -limit, limit)));
}

Seconds secondsBetween(Instant earlier, Instant later) { return Seconds(later - earlier); }

Instant advanced(Instant instant, Seconds seconds) { return instant + round<microseconds>(seconds); }

std::string iso8601(Instant instant) {
  const auto day = floor<days>(instant);
  const year_month_day date(day);
  const hh_mm_ss time(floor<seconds>(instant - day));
  std::string text = fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", static_cast<int>(date.year()),
                                 static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                                 time.hours().count(), time.minutes().count(), time.seconds().count());
  if (const auto fraction = (instant - floor<seconds>(instant)).count(); fraction != 0) {
    std::string digits = fmt::format("{:06}", fraction);
    digits.erase(digits.find_last_not_of('0') + 1);
    text += "." + digits;
  }
  return text + "Z";
}

std::optional<Instant> parseISO8601(std::string_view text) {
  const auto y = takeNumber(text, 4);
  if (!y || !take(text, '-')) return std::nullopt;
  const auto m = takeNumber(text, 2);
  if (!m || !take(text, '-')) return std::nullopt;
  const auto d = takeNumber(text, 2);
  if (!d || text.empty() || (text.front() != 'T' && text.front() != 't' && text.front() != ' ')) return std::nullopt;
  text.remove_prefix(1);
  const auto hour = takeNumber(text, 2);
  if (!hour || !take(text, ':')) return std::nullopt;
  const auto minute = takeNumber(text, 2);
  if (!minute || !take(text, ':')) return std::nullopt;
  const auto second = takeNumber(text, 2);
  // A leap second reads as the first instant of the next minute.
  if (!second || *hour > 23 || *minute > 59 || *second > 60) return std::nullopt;
  microseconds fraction{0};
  if (take(text, '.') || take(text, ',')) {
    const auto value = takeFraction(text);
    if (!value) return std::nullopt;
    fraction = *value;
  }
  const auto offset = zoneOffset(text);
  const year_month_day date{year(*y), month(static_cast<unsigned>(*m)), day(static_cast<unsigned>(*d))};
  if (!offset || !date.ok() || *y < 1) return std::nullopt;
  return Instant(sys_days(date)) + hours(*hour) + minutes(*minute) + seconds(*second) + fraction - *offset;
}

}  // namespace ambrel
