#pragma once
// Calendars of other programs: iCalendar text (RFC 5545) in, the occurrences of a window and the tasks out.
// We only read. The user's zone and the present time are passed in. Texts are UTF-8.

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"
#include "core/calendar/EventTime.h"
#include "core/calendar/Recurrence.h"

namespace ambrel {

struct EventDetails {
  std::string uid, title, location;
  std::string link;      // where its meeting is held: http or https, or empty
  std::string calendar;  // the name of the calendar that it belongs to
  friend bool operator==(const EventDetails&, const EventDetails&) = default;
};

// One event, as a component of the file tells it.
struct EventEntry {
  std::shared_ptr<const EventDetails> details;
  EventTime start;
  Length length;
  bool isGone = false;  // cancelled, or declined by the user
};

// An entry that takes the place of one occurrence, or of it and of all that follow.
struct MovedEvent {
  EventTime of;
  bool andLater = false;
  EventEntry entry;
};

struct EventSeries {
  EventEntry first;
  std::vector<Recurrence> rules;
  std::vector<EventTime> added, removed;
  std::vector<MovedEvent> moved;
};

struct CalendarTask {
  std::string uid, title;
  std::optional<EventTime> due;
  bool isDone = false;
  int priority = 0;      // 1 is the highest, 9 the lowest; 0: none
  std::string calendar;  // the list that it is on
};

struct CalendarText {
  std::string name;  // of the calendar; empty when the text does not tell
  std::vector<EventSeries> events;
  std::vector<CalendarTask> tasks;
};

// What cannot be read is passed over, and the rest counts. `calendar`: its name, unless the text has one of its own.
// ownAddresses: the user's mail addresses in lower case, by which declined invitations are told.
CalendarText parseCalendar(std::string_view bytes, const std::string& calendar,
                           const std::set<std::string>& ownAddresses);

// From `from` on, before `to`.
struct TimeWindow {
  Instant from, to;
  friend bool operator==(const TimeWindow&, const TimeWindow&) = default;
};

struct Occurrence {
  Instant start, end;     // `end` is after the last moment; equal to `start` for an event without a length
  bool isAllDay = false;  // from the beginning of a local day to the beginning of a later one
  std::shared_ptr<const EventDetails> event;

  // The same as long as the occurrence is neither moved nor renamed by its calendar.
  std::string id() const;
  friend bool operator==(const Occurrence& a, const Occurrence& b) {
    return a.start == b.start && a.end == b.end && a.isAllDay == b.isAllDay && *a.event == *b.event;
  }
};

// Those that touch the window, by their starts. user: the zone of times without one, and of whole days.
std::vector<Occurrence> occurrences(const std::vector<EventSeries>& events, const TimeWindow& window,
                                    const Calendar& user);

// A file of a calendar with its occurrences in the window of the book.
struct CalendarFile {
  std::shared_ptr<const CalendarText> text;
  std::vector<Occurrence> occurrences;
};

// All calendars, and the questions that the tiles ask of them. A cheap value.
class CalendarBook {
 public:
  CalendarBook() = default;
  CalendarBook(std::vector<std::shared_ptr<const CalendarFile>> files, TimeWindow window)
      : files_(std::move(files)), window_(window) {}

  const TimeWindow& window() const { return window_; }
  const std::vector<std::shared_ptr<const CalendarFile>>& files() const { return files_; }

  // Those that touch the span, each once even where several files have it: by start, whole days before times, by title.
  // Within the book's window they are at hand; of other spans the series are asked again.
  std::vector<Occurrence> between(const TimeWindow& span, const Calendar& user) const;
  // The first event with a time of day that begins at `now` or later. Looks into the window alone.
  std::optional<Occurrence> next(Instant now) const;
  // What a glance should show: the event that has begun within the last five minutes, unless another is as near; else
  // the next one; else the one that runs.
  std::optional<Occurrence> present(Instant now) const;
  // Tasks that are not done, by due time, then priority; those without a due time last.
  std::vector<CalendarTask> openTasks(const Calendar& user) const;

 private:
  std::vector<std::shared_ptr<const CalendarFile>> files_;
  TimeWindow window_{};
};

}  // namespace ambrel
