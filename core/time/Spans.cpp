#include "core/time/Spans.h"

#include <algorithm>
#include <array>

#include "core/time/Weeks.h"

namespace ambrel {

using namespace std::chrono;

SpanProgress spanProgress(TimeSpan span, const Calendar& calendar, Instant now) {
  const auto f = calendar.fields(now);
  SpanProgress progress;
  switch (span) {
    case TimeSpan::day:
      progress.begins = calendar.startOfDay(now);
      progress.ends = calendar.startOfDay(now, 1);
      break;
    case TimeSpan::week: {
      const int sinceFirst = (f.weekday - calendar.firstWeekday() + 7) % 7;
      progress.begins = calendar.startOfDay(now, -sinceFirst);
      progress.ends = calendar.startOfDay(now, 7 - sinceFirst);
      break;
    }
    case TimeSpan::month:
      progress.begins = calendar.instant(f.year, f.month, 1);
      progress.ends = calendar.instant(f.year, f.month + 1, 1);
      break;
    case TimeSpan::year:
      progress.begins = calendar.instant(f.year, 1, 1);
      progress.ends = calendar.instant(f.year + 1, 1, 1);
      break;
  }
  const auto length = std::max(progress.ends - progress.begins, microseconds(1));
  progress.percent = static_cast<int>(std::clamp<std::int64_t>(100 * (now - progress.begins) / length, 0, 99));
  // The first moment that reads as one percent more.
  progress.nextPercent = progress.begins + (length * (progress.percent + 1) + microseconds(99)) / 100;
  return progress;
}

Weekend weekend(const Calendar& calendar, Instant now) {
  const std::array<bool, 7> off = daysOff(calendar.locale());
  const auto isOff = [&](int days) {
    return off[static_cast<std::size_t>((calendar.fields(now).weekday - 1 + days % 7 + 7) % 7)];
  };
  Weekend found{.begins = {}, .ends = {}, .isNow = isOff(0)};
  int first = 0, end = 0;
  if (found.isNow)
    while (isOff(first - 1)) --first;
  else
    while (!isOff(first)) ++first;
  for (end = first; isOff(end); ++end) {
  }
  found.begins = calendar.startOfDay(now, first);
  found.ends = calendar.startOfDay(now, end);
  return found;
}

Wait waitUntil(Instant end, const Calendar& calendar, Instant now) {
  if (end <= now) return {};
  const auto f = calendar.fields(now);
  // The same time of day, that many days later.
  const auto later = [&](int days) {
    return days == 0 ? now : calendar.instant(f.year, f.month, f.day + days, f.hour, f.minute, f.second);
  };
  Wait wait{.days = daysBetween(dateOf(calendar, now), dateOf(calendar, end))};
  while (wait.days > 0 && later(wait.days) > end) --wait.days;
  const auto rest = ceil<minutes>(end - later(wait.days));
  wait.hours = static_cast<int>(rest / hours(1));
  wait.minutes = static_cast<int>((rest % hours(1)) / minutes(1));
  return wait;
}

}  // namespace ambrel
