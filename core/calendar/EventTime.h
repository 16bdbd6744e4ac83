#pragma once
// Times as calendars write them: a clock's reading, and the zone whose clock it is.

#include <chrono>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "core/base/Calendar.h"

namespace ambrel {

// What a clock on the wall shows, in seconds since its 1970-01-01 00:00.
using WallTime = std::chrono::local_seconds;

WallTime wallTime(const Calendar& zone, Instant instant);
// As Calendar::instant: what a change of clocks skips or repeats is read with the offset before it.
Instant instantOf(const Calendar& zone, WallTime time);

// A zone that a calendar file describes itself (VTIMEZONE): the changes of its offset, by their times.
struct WrittenZone {
  struct Change {
    WallTime at;  // by the clock before the change
    std::chrono::seconds before, after;
  };
  std::vector<Change> changes;

  Instant instantOf(WallTime time) const;
  WallTime wallTime(Instant instant) const;
};

// The zone of an event. Floating: whatever the user's is.
class EventZone {
 public:
  EventZone() = default;
  EventZone(Calendar zone) : zone_(std::move(zone)) {}
  EventZone(std::shared_ptr<const WrittenZone> zone) : zone_(std::move(zone)) {}

  Instant instantOf(WallTime time, const Calendar& user) const;
  WallTime wallTime(Instant instant, const Calendar& user) const;

 private:
  std::variant<std::monostate, Calendar, std::shared_ptr<const WrittenZone>> zone_;
};

struct EventTime {
  WallTime time{};
  bool isDate = false;  // a whole day; `time` is its midnight by the user's clock
  EventZone zone{};

  Instant instant(const Calendar& user) const { return zone.instantOf(time, user); }
};

// Of a whole day the number of days counts, of other times the seconds.
using Length = std::chrono::seconds;

}  // namespace ambrel
