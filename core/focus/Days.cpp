#include "core/focus/Days.h"

#include <algorithm>
#include <numeric>

namespace ambrel {

void DayCount::add(int difference, const std::string& todayKey) {
  count = std::max(0, today(todayKey) + difference);
  day = todayKey;
}

std::array<FocusStats::Day, 7> FocusStats::week(const DayCounts& history, Instant date, const Calendar& calendar) {
  const int sinceFirst = (calendar.fields(date).weekday - calendar.firstWeekday() + 7) % 7;
  std::array<Day, 7> week;
  for (int i = 0; i < 7; ++i) {
    Day& day = week[static_cast<std::size_t>(i)];
    day.date = calendar.startOfDay(date, i - sinceFirst);
    const auto found = history.find(calendar.dayKey(day.date));
    if (found != history.end()) day.count = found->second;
  }
  return week;
}

int FocusStats::total(const std::array<Day, 7>& week) {
  return std::accumulate(week.begin(), week.end(), 0, [](int sum, const Day& day) { return sum + day.count; });
}

int Streak::length(const std::set<std::string>& days, Instant now, const Calendar& calendar) {
  int count = 0;
  std::string previous;
  for (int back = 0;; --back) {
    const std::string key = calendar.dayKey(calendar.startOfDay(now, back));
    // A date that the zone left out reads as its neighbour.
    if (key == previous) continue;
    if (days.contains(key))
      ++count;
    else if (back < 0)
      return count;
    previous = key;
  }
}

std::array<std::string, 7> lastSevenDays(Instant now, const Calendar& calendar) {
  std::array<std::string, 7> keys;
  for (int i = 0; i < 7; ++i) keys[static_cast<std::size_t>(i)] = calendar.dayKey(calendar.startOfDay(now, i - 6));
  return keys;
}

DayCounts newestDays(DayCounts counts) {
  constexpr std::size_t most = 367;
  // Keys of one form sort as their days do.
  while (counts.size() > most) counts.erase(counts.begin());
  return counts;
}

std::string_view Mood::name(int mood) {
  constexpr std::array<std::string_view, 5> names{"Awful", "Low", "Okay", "Good", "Great"};
  return mood >= worst && mood <= best ? names[static_cast<std::size_t>(mood - worst)] : std::string_view{};
}

}  // namespace ambrel
