#include "core/calendar/EventTime.h"

#include <algorithm>

#include "core/base/Overloaded.h"

namespace ambrel {

using namespace std::chrono;

WallTime wallTime(const Calendar& zone, Instant instant) {
  return WallTime(floor<seconds>(instant.time_since_epoch()) + zone.offset(instant));
}

Instant instantOf(const Calendar& zone, WallTime time) {
  const auto day = floor<days>(time);
  const year_month_day date(day);
  return zone.instant(static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                      static_cast<int>(static_cast<unsigned>(date.day())), 0, 0,
                      static_cast<int>((time - day).count()));
}

Instant WrittenZone::instantOf(WallTime time) const {
  const auto later = std::ranges::upper_bound(changes, time, {}, &Change::at);
  if (changes.empty()) return Instant(time.time_since_epoch());
  if (later == changes.begin()) return Instant(time.time_since_epoch() - changes.front().before);
  const Change& last = *std::prev(later);
  // In the hour that a change skips, the offset before it still counts.
  const bool isSkipped = time < last.at + (last.after - last.before);
  // So it does in the hour that the next change repeats, which comes before `at` of that change.
  return Instant(time.time_since_epoch() - (isSkipped ? last.before : last.after));
}

WallTime WrittenZone::wallTime(Instant instant) const {
  const auto now = floor<seconds>(instant.time_since_epoch());
  if (changes.empty()) return WallTime(now);
  auto offset = changes.front().before;
  for (const Change& change : changes)
    if (change.at.time_since_epoch() - change.before <= now) offset = change.after;
  return WallTime(now + offset);
}

Instant EventZone::instantOf(WallTime time, const Calendar& user) const {
  return std::visit(Overloaded{[&](std::monostate) { return ambrel::instantOf(user, time); },
                               [&](const Calendar& zone) { return ambrel::instantOf(zone, time); },
                               [&](const auto& written) { return written->instantOf(time); }},
                    zone_);
}

WallTime EventZone::wallTime(Instant instant, const Calendar& user) const {
  return std::visit(Overloaded{[&](std::monostate) { return ambrel::wallTime(user, instant); },
                               [&](const Calendar& zone) { return ambrel::wallTime(zone, instant); },
                               [&](const auto& written) { return written->wallTime(instant); }},
                    zone_);
}

}  // namespace ambrel
