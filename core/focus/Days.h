#pragma once
// Counts and logs by day. Days are keyed by Calendar::dayKey.

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "core/base/Calendar.h"

namespace ambrel {

using DayCounts = std::map<std::string, int>;

// A count that is valid for one day and begins again on another.
struct DayCount {
  int count = 0;
  std::optional<std::string> day;

  int today(const std::string& todayKey) const { return day == todayKey ? count : 0; }
  void add(int difference, const std::string& todayKey);
  friend bool operator==(const DayCount&, const DayCount&) = default;
};

struct FocusStats {
  struct Day {
    Instant date;  // the beginning of the day
    int count = 0;
    friend bool operator==(const Day&, const Day&) = default;
  };
  // The seven days of the week that holds `date`, from the locale's first weekday on.
  static std::array<Day, 7> week(const DayCounts& history, Instant date, const Calendar& calendar);
  static int total(const std::array<Day, 7>& week);
};

struct Streak {
  // Days in a row up to today. A day that is not over does not break a run: without today it counts from yesterday.
  static int length(const std::set<std::string>& days, Instant now, const Calendar& calendar);
};

// 1, the worst, to 5.
struct Mood {
  static constexpr int worst = 1, best = 5;
  // "Awful", "Low", "Okay", "Good", "Great"; "" for anything else.
  static std::string_view name(int mood);
};
// The day keys of the last seven days, today last.
std::array<std::string, 7> lastSevenDays(Instant now, const Calendar& calendar);

// What is kept of a log by day: the newest days, as many as a year has. The present day does not come into it, as a
// clock that is wrong for once would empty the log.
DayCounts newestDays(DayCounts counts);

}  // namespace ambrel
