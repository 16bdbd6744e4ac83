#pragma once
// The reminders to rest the eyes and to stand up.

#include "core/base/EnumText.h"
#include "core/focus/Days.h"
#include "core/focus/FocusNotice.h"

namespace ambrel {

enum class BreakKind { eyes, stand };
// "eyeBreak", "standUp": the prefix of the keys of its count, and its notification's identifier.
std::string_view keyPrefix(BreakKind kind);

struct BreakTimer {
  static constexpr Seconds eyeBreakLength{20};
  static constexpr Seconds dueFor{300};

  BreakKind kind = BreakKind::eyes;
  bool isOn = true;
  int intervalMinutes = 20;  // 1...240
  Instant nextDue;
  std::optional<Instant> breakEnds;  // during an eye break
  bool isDue = false;
  DayCount taken;

  // Both begin a new interval.
  void turn(bool on, Instant now);
  void setInterval(int minutes, Instant now);
  // A stand-up counts at once; an eye break when its time is over.
  void takeBreak(Instant now, const Calendar& calendar);
  // Ends an eye break before its time, uncounted.
  void endBreak(Instant now);
  // To the next break, or to the end of the present one.
  Seconds left(Instant now) const;
  // Of the interval or of the break that is running.
  Seconds length() const;
  // The next moment at which `tick` has something to do.
  std::optional<Instant> nextChange() const;
  // True when the reminder came due just now. Unless it is enabled, a new interval begins instead.
  bool tick(Instant now, const Calendar& calendar, bool isEnabled);
  // A sleep as long as a break was one: a new interval begins.
  void slept(Seconds span, Instant now);
  void clockMoved(Seconds by);
  FocusNotice notice() const;
  friend bool operator==(const BreakTimer&, const BreakTimer&) = default;

 private:
  void beginInterval(Instant now);
};

}  // namespace ambrel
