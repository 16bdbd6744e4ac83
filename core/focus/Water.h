#pragma once
// Glasses of water by the day, and the one reminder of the next.

#include "core/focus/Days.h"
#include "core/focus/FocusNotice.h"

namespace ambrel {

struct Water {
  // After a day whose goal was met, no glass is due before this hour.
  static constexpr int morningHour = 8;

  DayCount glasses;
  std::optional<Instant> lastDrinkAt;
  int goal = 8;              // 1...30
  int intervalMinutes = 30;  // 5...480
  bool remindersOn = true;
  std::optional<Instant> reminder;  // the next; absent after it came, until something changes

  void add(Instant now, const Calendar& calendar);
  void remove(Instant now, const Calendar& calendar);
  // To be called after a setting was changed: sets the reminder, at least a minute ahead.
  void settle(Instant now, const Calendar& calendar);
  bool isGoalMet(Instant now, const Calendar& calendar) const;
  // When the next glass is due, whether that has passed or not: absent without reminders, before the first glass
  // ever, and once today's goal is met.
  std::optional<Instant> dueAt(Instant now, const Calendar& calendar) const;
  // True when the reminder is to be shown now. Unless it is enabled, it is passed over for an interval.
  bool tick(Instant now, bool isEnabled);
  FocusNotice notice(Instant now, const Calendar& calendar) const;
  void clockMoved(Seconds by);

  friend bool operator==(const Water&, const Water&) = default;

 private:
  std::optional<Instant> nextGlass(const Calendar& calendar) const;
};

}  // namespace ambrel
