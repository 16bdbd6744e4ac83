#pragma once
// Rules of repetition (RFC 5545, 3.3.10).

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/calendar/EventTime.h"

namespace ambrel {

struct Recurrence {
  enum class Frequency { minutely, hourly, daily, weekly, monthly, yearly };
  // nth: of the month or of the year; negative from its end, 0 for every one.
  struct Day {
    int weekday = 1, nth = 0;  // ISO: 1 Monday to 7 Sunday
  };

  Frequency frequency = Frequency::daily;
  int interval = 1;
  std::optional<int> count;
  std::optional<WallTime> until;  // by the clock of the event's zone; included
  int weekStart = 1;              // ISO
  // Each in rising order. Negative numbers count from the end.
  std::vector<int> months, weeks, yearDays, monthDays, hours, minutes, seconds, positions;
  std::vector<Day> days;
};

// What the rules of one file may cost in all: the steps that are left. Without it a few lines of text could keep a
// processor busy for hours.
struct RecurrenceBudget {
  std::int64_t steps = 4'000'000;
};

// The times of the rule that are neither before `from` nor after `to`, rising. `start` begins the series and fills in
// what the rule leaves open; it is among them only where it matches the rule. A rule without a count begins at `from`,
// however long ago its start was.
std::vector<WallTime> recurrences(const Recurrence& rule, WallTime start, WallTime from, WallTime to,
                                  RecurrenceBudget& budget);

}  // namespace ambrel
