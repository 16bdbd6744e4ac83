#include <algorithm>
#include <fmt/format.h>

#include "core/focus.h"

namespace ambrel {

void Water::add(Instant now, const Calendar& calendar) {
  glasses.add(1, calendar.dayKey(now));
  lastDrinkAt = now;
}

void Water::remove(Instant now, const Calendar& calendar) { glasses.add(-1, calendar.dayKey(now)); }

bool Water::isGoalMet(Instant now, const Calendar& calendar) const {
  return glasses.today(calendar.dayKey(now)) >= goal;
}

std::optional<Instant> Water::dueAt(Instant now, const Calendar& calendar) const {
  if (!remindersOn || !lastDrinkAt || isGoalMet(now, calendar)) return std::nullopt;
  const Instant due = *lastDrinkAt + std::chrono::minutes(intervalMinutes);
  if (glasses.count < goal) return due;
  // The goal of an earlier day was met, and nobody wants to drink at midnight.
  const auto last = calendar.fields(*lastDrinkAt);
  return std::max(due, calendar.instant(last.year, last.month, last.day + 1, morningHour));
}

std::optional<Instant> Water::reminderAt(Instant now, const Calendar& calendar) const {
  const auto due = dueAt(now, calendar);
  if (!due) return std::nullopt;
  return std::max<Instant>(*due, now + std::chrono::seconds(60));
}

void Water::clockMoved(Seconds by) {
  if (lastDrinkAt) lastDrinkAt = advanced(*lastDrinkAt, by);
}

FocusNotice Water::notice(Instant now, const Calendar& calendar) const {
  return {"water", "Time for some water",
          fmt::format("{} of {} glasses today.", glasses.today(calendar.dayKey(now)), goal)};
}

}  // namespace ambrel
