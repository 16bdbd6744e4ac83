#include <algorithm>
#include <unordered_set>

#include "core/calendar.h"

namespace ambrel {
namespace {

using namespace std::chrono;

// An event that is longer is shown from its start in the book's span alone, however long before that it began.
constexpr seconds longestLookBack = days(400);

class Unfolding {
 public:
  Unfolding(const TimeWindow& window, const Calendar& user) : window_(window), user_(user) {}

  void add(const EventSeries& series) {
    const EventTime& start = series.first.start;
    times_.clear();
    times_.push_back(start.time);
    // The window by the clock of the series; a day more covers what an offset may make of it.
    const seconds back = std::min(series.first.length, longestLookBack) + days(1);
    const WallTime from = start.zone.wallTime(window_.from, user_) - back;
    const WallTime to = start.zone.wallTime(window_.to, user_) + days(1);
    for (const Recurrence& rule : series.rules)
      for (const WallTime time : recurrences(rule, start.time, from, to, budget_)) times_.push_back(time);
    for (const EventTime& added : series.added) times_.push_back(inZoneOf(start, added));
    std::ranges::sort(times_);
    times_.erase(std::unique(times_.begin(), times_.end()), times_.end());

    taken_.clear();
    for (const EventTime& removed : series.removed) take(start, removed);
    for (const MovedEvent& moved : series.moved) {
      take(start, moved.of);
      emit(moved.entry, moved.entry.start.time);
    }
    for (const WallTime time : times_) {
      if (taken_.contains(time.time_since_epoch().count())) continue;
      const MovedEvent* later = lastChange(series, time);
      if (later)
        emit(later->entry, time + (later->entry.start.time - inZoneOf(start, later->of)));
      else
        emit(series.first, time);
    }
  }

  std::vector<Occurrence> result;

 private:
  WallTime inZoneOf(const EventTime& start, const EventTime& other) const {
    if (start.isDate || other.isDate) return other.time;
    return start.zone.wallTime(other.instant(user_), user_);
  }

  void take(const EventTime& start, const EventTime& other) {
    if (other.isDate && !start.isDate) {  // the whole day
      for (const WallTime time : times_)
        if (floor<days>(time) == floor<days>(other.time)) taken_.insert(time.time_since_epoch().count());
      return;
    }
    taken_.insert(
        (start.isDate ? WallTime(floor<days>(other.time)) : inZoneOf(start, other)).time_since_epoch().count());
  }

  // The change that counts for all later times, if one does for this.
  const MovedEvent* lastChange(const EventSeries& series, WallTime time) const {
    const MovedEvent* last = nullptr;
    for (const MovedEvent& moved : series.moved) {
      if (!moved.andLater || inZoneOf(series.first.start, moved.of) > time) continue;
      if (!last || inZoneOf(series.first.start, last->of) < inZoneOf(series.first.start, moved.of)) last = &moved;
    }
    return last;
  }

  void emit(const EventEntry& entry, WallTime time) {
    if (entry.isGone) return;
    const EventZone& zone = entry.start.zone;
    const Instant start = zone.instantOf(time, user_);
    const Instant end = entry.start.isDate ? zone.instantOf(time + entry.length, user_) : start + entry.length;
    if (start >= window_.to || (end <= window_.from && !(start == end && start == window_.from))) return;
    result.push_back({start, end, entry.start.isDate, entry.details});
  }

  TimeWindow window_;
  const Calendar& user_;
  RecurrenceBudget budget_;
  std::vector<WallTime> times_;
  std::unordered_set<std::int64_t> taken_;
};

bool isBefore(const Occurrence& a, const Occurrence& b) {
  if (a.start != b.start) return a.start < b.start;
  if (a.isAllDay != b.isAllDay) return a.isAllDay;
  if (a.event->title != b.event->title) return a.event->title < b.event->title;
  return a.event->uid < b.event->uid;
}

void order(std::vector<Occurrence>& list) { std::ranges::sort(list, isBefore); }

}  // namespace

std::string Occurrence::id() const { return (event->uid.empty() ? event->title : event->uid) + "@" + iso8601(start); }

std::vector<Occurrence> occurrences(const std::vector<EventSeries>& events, const TimeWindow& window,
                                    const Calendar& user) {
  Unfolding unfolding(window, user);
  for (const EventSeries& series : events) unfolding.add(series);
  order(unfolding.result);
  return std::move(unfolding.result);
}

std::vector<Occurrence> CalendarBook::between(const TimeWindow& span, const Calendar& user) const {
  std::vector<Occurrence> found;
  const bool isAtHand = span.from >= window_.from && span.to <= window_.to;
  for (const auto& file : files_) {
    if (isAtHand) {
      for (const Occurrence& occurrence : file->occurrences) {
        if (occurrence.start >= span.to) break;
        if (occurrence.end > span.from || occurrence.start >= span.from) found.push_back(occurrence);
      }
    } else {
      for (Occurrence& occurrence : occurrences(file->text->events, span, user)) found.push_back(std::move(occurrence));
    }
  }
  order(found);
  const auto isSame = [](const Occurrence& a, const Occurrence& b) {
    return a.start == b.start && a.end == b.end && a.event->uid == b.event->uid && a.event->title == b.event->title;
  };
  found.erase(std::unique(found.begin(), found.end(), isSame), found.end());
  return found;
}

std::optional<Occurrence> CalendarBook::next(Instant now) const {
  const Occurrence* first = nullptr;
  for (const auto& file : files_) {
    const auto& list = file->occurrences;
    for (auto at = std::ranges::lower_bound(list, now, {}, &Occurrence::start); at != list.end(); ++at) {
      if (at->isAllDay) continue;
      if (!first || isBefore(*at, *first)) first = &*at;
      break;
    }
  }
  return first ? std::optional(*first) : std::nullopt;
}

std::optional<Occurrence> CalendarBook::present(Instant now) const {
  constexpr minutes grace{5};
  const Occurrence* running = nullptr;
  for (const auto& file : files_)
    for (const Occurrence& occurrence : file->occurrences) {
      if (occurrence.start > now) break;
      if (occurrence.isAllDay || occurrence.end <= now) continue;
      if (!running || isBefore(*running, occurrence)) running = &occurrence;
    }
  const auto coming = next(now);
  const bool hasJustBegun = running && now - running->start < grace;
  if (running && (!coming || (hasJustBegun && coming->start - now > grace))) return *running;
  return coming;
}

std::vector<CalendarTask> CalendarBook::openTasks(const Calendar& user) const {
  std::vector<CalendarTask> open;
  std::unordered_set<std::string> known;
  for (const auto& file : files_)
    for (const CalendarTask& task : file->text->tasks)
      if (!task.isDone && (task.uid.empty() || known.insert(task.uid).second)) open.push_back(task);
  const auto rank = [&](const CalendarTask& task) {
    const int priority = task.priority == 0 ? 10 : task.priority;
    return std::tuple(task.due ? task.due->instant(user) : Instant::max(), priority, task.title);
  };
  std::ranges::sort(open, [&](const CalendarTask& a, const CalendarTask& b) { return rank(a) < rank(b); });
  return open;
}

}  // namespace ambrel
