#pragma once
// When people in several zones are at work at the same time.

#include <array>
#include <optional>
#include <vector>

#include "core/time/Cities.h"
#include "core/time/Weeks.h"

namespace ambrel {

// Whole hours of a local day; `to` is after `from`, up to 24.
struct WorkingHours {
  int from = 9, to = 17;
  friend bool operator==(const WorkingHours&, const WorkingHours&) = default;
};

enum class Availability { asleep, awake, working };

// One place for a whole day of the user's: what its hours are, in quarters from the day's beginning on.
struct MeetingPlace {
  City city;
  std::vector<Availability> quarters;
  friend bool operator==(const MeetingPlace&, const MeetingPlace&) = default;
};

struct MeetingDay {
  static constexpr std::chrono::minutes quarter{15};

  Instant begins{};  // of the user's local day
  int quarters = 96;
  std::vector<MeetingPlace> places;
  // The longest time with most places at work, in quarters; absent when it is never more than one of several.
  struct Window {
    int from = 0, to = 0, places = 0;
    friend bool operator==(const Window&, const Window&) = default;
  };
  std::optional<Window> best;

  Instant at(int index) const { return begins + index * quarter; }
  bool isForAll() const { return best && best->places == static_cast<int>(places.size()); }
  friend bool operator==(const MeetingDay&, const MeetingDay&) = default;
};

MeetingDay meetingDay(const std::vector<City>& cities, WorkingHours hours, const Calendar& calendar, const Date& day);
// The first day from now on, within a week, on which most are at work at some time that is not over; today without one.
MeetingDay nextMeetingDay(const std::vector<City>& cities, WorkingHours hours, const Calendar& calendar, Instant now);

}  // namespace ambrel
