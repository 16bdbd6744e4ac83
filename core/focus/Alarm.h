#pragma once

#include <optional>

#include "core/base/Calendar.h"
#include "core/focus/FocusNotice.h"

namespace ambrel {

struct Alarm {
  // By then it falls silent by itself.
  static constexpr Seconds ringsFor{300};

  bool isOn = false;
  int hour = 7;            // 0...23
  int minute = 30;         // 0...59
  int snoozeMinutes = 10;  // 1...60
  bool isRinging = false;
  std::optional<Instant> snoozedUntil;
  std::optional<Instant> silenceAt;  // while it rings
  Instant watchedFrom;               // it rings at the first hour:minute after this

  enum class Event { none, rings, silenced, missed };

  void turn(bool on, Instant now);
  void set(int newHour, int newMinute, Instant now);
  void snooze(Instant now);
  // Until the next day's time. Also ends a snooze.
  void stop();
  // The end of the snooze, or the next time of the day; absent while it is off.
  std::optional<Instant> nextRing(const Calendar& calendar) const;
  // The next moment at which `tick` has something to do.
  std::optional<Instant> nextChange(const Calendar& calendar) const;
  // A ring that could not sound in its five minutes, because the machine slept, is missed and only told of. Unless the
  // alarm is enabled when it is to ring, that ring is passed over.
  Event tick(Instant now, const Calendar& calendar, bool isEnabled);
  // What has passed by the clock of another zone alone was not missed.
  void zoneChanged(Instant now);
  void clockMoved(Seconds by);
  FocusNotice notice(bool isMissed, const Calendar& calendar) const;
  friend bool operator==(const Alarm&, const Alarm&) = default;
};

}  // namespace ambrel
