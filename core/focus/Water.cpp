#include "core/focus/Water.h"

#include <algorithm>
#include <fmt/format.h>

namespace ambrel {

void Water::add(Instant now, const Calendar& calendar) {
  glasses.add(1, calendar.dayKey(now));
  lastDrinkAt = now;
  settle(now, calendar);
}

void Water::remove(Instant now, const Calendar& calendar) {
  glasses.add(-1, calendar.dayKey(now));
  settle(now, calendar);
}

void Water::settle(Instant now, const Calendar& calendar) {
  reminder = nextGlass(calendar);
  if (reminder) reminder = std::max<Instant>(*reminder, now + std::chrono::seconds(60));
}

bool Water::isGoalMet(Instant now, const Calendar& calendar) const {
  return glasses.today(calendar.dayKey(now)) >= goal;
}

std::optional<Instant> Water::nextGlass(const Calendar& calendar) const {
  if (!remindersOn || !lastDrinkAt) return std::nullopt;
  const Instant due = *lastDrinkAt + std::chrono::minutes(intervalMinutes);
  if (glasses.count < goal) return due;
  // That day's goal is met, and nobody wants to drink at midnight.
  const auto last = calendar.fields(*lastDrinkAt);
  return std::max(due, calendar.instant(last.year, last.month, last.day + 1, morningHour));
}

std::optional<Instant> Water::dueAt(Instant now, const Calendar& calendar) const {
  return isGoalMet(now, calendar) ? std::nullopt : nextGlass(calendar);
}

bool Water::tick(Instant now, bool isEnabled) {
  if (!reminder || now < *reminder) return false;
  reminder.reset();
  if (!isEnabled) reminder = now + std::chrono::minutes(intervalMinutes);
  return isEnabled;
}

void Water::clockMoved(Seconds by) {
  if (lastDrinkAt) lastDrinkAt = advanced(*lastDrinkAt, by);
  if (reminder) reminder = advanced(*reminder, by);
}

FocusNotice Water::notice(Instant now, const Calendar& calendar) const {
  return {"water", "Time for some water",
          fmt::format("{} of {} glasses today.", glasses.today(calendar.dayKey(now)), goal)};
}

}  // namespace ambrel
