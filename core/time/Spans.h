#pragma once
// How far the day, the week, the month and the year are, and when the next weekend is.

#include "core/base/Calendar.h"

namespace ambrel {

enum class TimeSpan { day, week, month, year };

// A span of local time with a moment in it. It may be an hour longer or shorter than usual.
struct SpanProgress {
  Instant begins{}, ends{};
  int percent = 0;        // passed, rounded down: 0 to 99
  Instant nextPercent{};  // when it is one more
  friend bool operator==(const SpanProgress&, const SpanProgress&) = default;
};
SpanProgress spanProgress(TimeSpan span, const Calendar& calendar, Instant now);

// The days off of the locale's region: Saturday and Sunday, or Friday and Saturday.
struct Weekend {
  Instant begins{}, ends{};  // the present one, or the next
  bool isNow = false;
  friend bool operator==(const Weekend&, const Weekend&) = default;
};
Weekend weekend(const Calendar& calendar, Instant now);

// Local days, and what is over in hours and minutes. The last minute before the end counts as one.
struct Wait {
  int days = 0, hours = 0, minutes = 0;
  friend bool operator==(const Wait&, const Wait&) = default;
};
Wait waitUntil(Instant end, const Calendar& calendar, Instant now);

}  // namespace ambrel
