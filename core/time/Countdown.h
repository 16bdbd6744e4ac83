#pragma once
// Days until a date. The date is stored as its noon in UTC, so that it stays the same in every zone.

#include <optional>
#include <string>

#include "core/time/Weeks.h"

namespace ambrel {

struct Countdown {
  std::string title;
  Date date;
  friend bool operator==(const Countdown&, const Countdown&) = default;
};

// Without a stored moment: the next New Year. A moment that is no noon in UTC is read in the calendar's zone: earlier
// versions stored the noon there.
Countdown countdownOf(const std::optional<std::string>& title, std::optional<double> unixSeconds,
                      const Calendar& calendar, Instant now);
// What is stored for a date, in seconds since 1970.
double storedMoment(const Date& date);

}  // namespace ambrel
