// Whatever an iCalendar text says, its events end, lie in the window that is asked for, and are safe to show and open.

#include <algorithm>
#include <cstdlib>

#include "core/base/Text.h"
#include "core/calendar.h"

using namespace ambrel;

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Calendar user("Europe/Berlin", "en_US");
  static const TimeWindow window{*parseISO8601("2026-11-01T00:00:00Z"), *parseISO8601("2027-01-01T00:00:00Z")};
  auto text = std::make_shared<const CalendarText>(
      parseCalendar({reinterpret_cast<const char*>(data), size}, "Home", {"me@example.org"}));
  auto found = occurrences(text->events, window, user);
  require(std::ranges::is_sorted(found, {}, &Occurrence::start));
  for (const Occurrence& occurrence : found) {
    require(occurrence.start < window.to && occurrence.end >= window.from && occurrence.start <= occurrence.end);
    require(isValidUTF8(occurrence.event->title) && isValidUTF8(occurrence.event->location));
    const std::string& link = occurrence.event->link;
    const std::string scheme = asciiLower(link.substr(0, 8));
    require(link.empty() || scheme == "https://" || scheme.starts_with("http://"));
  }
  const CalendarBook book({std::make_shared<const CalendarFile>(CalendarFile{std::move(text), std::move(found)})},
                          window);
  const Instant now = *parseISO8601("2026-11-22T09:00:00Z");
  const auto next = book.next(now);
  require(!next || (next->start >= now && !next->isAllDay));
  book.present(now);
  book.openTasks(user);
  book.between(window, user);
  return 0;
}
