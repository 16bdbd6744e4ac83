#include "core/time/Meeting.h"

#include <algorithm>

namespace ambrel {
namespace {

Availability availability(const Calendar::Fields& local, WorkingHours hours, const std::array<bool, 7>& off) {
  constexpr int rises = 7, sleeps = 22;
  const bool isDayOff = off[static_cast<std::size_t>(local.weekday - 1)];
  if (!isDayOff && local.hour >= hours.from && local.hour < hours.to) return Availability::working;
  return local.hour >= rises && local.hour < sleeps ? Availability::awake : Availability::asleep;
}

}  // namespace

MeetingDay meetingDay(const std::vector<City>& cities, WorkingHours hours, const Calendar& calendar, const Date& date) {
  MeetingDay day;
  day.begins = calendar.instant(date.year, date.month, date.day);
  day.quarters =
      static_cast<int>((calendar.instant(date.year, date.month, date.day + 1) - day.begins) / MeetingDay::quarter);
  std::vector<int> working(static_cast<std::size_t>(day.quarters));
  for (const City& city : cities) {
    const Calendar there(city.zone, calendar.locale());
    const auto off = daysOffIn(city.zone, calendar.locale());
    MeetingPlace place{city, {}};
    for (int i = 0; i < day.quarters; ++i) {
      place.quarters.push_back(availability(there.fields(day.at(i)), hours, off));
      if (place.quarters.back() == Availability::working) ++working[static_cast<std::size_t>(i)];
    }
    day.places.push_back(std::move(place));
  }
  const int most = working.empty() ? 0 : std::ranges::max(working);
  if (most < std::min<int>(2, static_cast<int>(cities.size())) || most == 0) return day;
  for (int from = 0, to = 0; from < day.quarters; from = to + 1) {
    for (to = from; to < day.quarters && working[static_cast<std::size_t>(to)] == most; ++to) {
    }
    if (to - from > (day.best ? day.best->to - day.best->from : 0)) day.best = {from, to, most};
  }
  return day;
}

MeetingDay nextMeetingDay(const std::vector<City>& cities, WorkingHours hours, const Calendar& calendar, Instant now) {
  constexpr int farthest = 7;
  const Date today = dateOf(calendar, now);
  std::optional<MeetingDay> most;
  for (int i = 0; i <= farthest && !(most && most->isForAll()); ++i) {
    MeetingDay day = meetingDay(cities, hours, calendar, daysLater(today, i));
    if (day.best && day.at(day.best->to) > now && (!most || day.best->places > most->best->places))
      most = std::move(day);
  }
  return most ? *most : meetingDay(cities, hours, calendar, today);
}

}  // namespace ambrel
