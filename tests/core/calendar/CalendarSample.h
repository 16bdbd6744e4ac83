#pragma once
// Calendars of tests, as their files write them.

#include <string>

#include "core/calendar.h"
#include "tests/Time.h"

namespace ambrel {

inline std::string event(const std::string& lines) { return "BEGIN:VEVENT\n" + lines + "\nEND:VEVENT\n"; }
inline std::string calendarOf(const std::string& components) {
  return "BEGIN:VCALENDAR\nVERSION:2.0\n" + components + "END:VCALENDAR\n";
}

inline const Calendar berlin("Europe/Berlin", "en_GB");

inline TimeWindow window(std::string_view from, std::string_view to) { return {at(from), at(to)}; }
const TimeWindow november = window("2026-11-01T00:00:00Z", "2026-12-01T00:00:00Z");

// "2026-11-21T09:00:00Z Title", one for each occurrence.
inline std::vector<std::string> told(const std::vector<Occurrence>& occurrences) {
  std::vector<std::string> lines;
  for (const Occurrence& occurrence : occurrences)
    lines.push_back(iso8601(occurrence.start) + " " + occurrence.event->title);
  return lines;
}
inline std::vector<std::string> told(const std::string& components, const TimeWindow& span = november,
                                     const Calendar& user = berlin) {
  return told(occurrences(parseCalendar(calendarOf(components), "Home", {}).events, span, user));
}

}  // namespace ambrel
