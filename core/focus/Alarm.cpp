#include "core/focus/Alarm.h"

#include <algorithm>

#include "core/base/LocalText.h"

namespace ambrel {

void Alarm::turn(bool on, Instant now) {
  if (on == isOn) return;
  stop();
  isOn = on;
  watchedFrom = now;
}

void Alarm::set(int newHour, int newMinute, Instant now) {
  stop();
  hour = std::clamp(newHour, 0, 23);
  minute = std::clamp(newMinute, 0, 59);
  watchedFrom = now;
}

void Alarm::snooze(Instant now) {
  if (!isRinging) return;
  stop();
  snoozedUntil = now + std::chrono::minutes(snoozeMinutes);
}

void Alarm::stop() {
  isRinging = false;
  silenceAt.reset();
  snoozedUntil.reset();
}

std::optional<Instant> Alarm::nextRing(const Calendar& calendar) const {
  if (!isOn) return std::nullopt;
  if (snoozedUntil) return snoozedUntil;
  const auto from = calendar.fields(watchedFrom);
  // The day itself, or the next; the day after that where a zone leaves out a date.
  for (int days = 0; days <= 2; ++days)
    if (const Instant ring = calendar.instant(from.year, from.month, from.day + days, hour, minute); ring > watchedFrom)
      return ring;
  return std::nullopt;
}

std::optional<Instant> Alarm::nextChange(const Calendar& calendar) const {
  return isRinging ? silenceAt : nextRing(calendar);
}

Alarm::Event Alarm::tick(Instant now, const Calendar& calendar, bool isEnabled) {
  if (isRinging) {
    if (!silenceAt || now < *silenceAt) return Event::none;
    stop();
    return Event::silenced;
  }
  // The clock was set back: what has rung in a future that is not to be does not hold up the next ring.
  if (watchedFrom > now + std::chrono::hours(24)) watchedFrom = now;
  const auto ring = nextRing(calendar);
  if (!ring || *ring > now) return Event::none;
  stop();
  watchedFrom = now;
  if (!isEnabled) return Event::none;
  if (secondsBetween(*ring, now) >= ringsFor) return Event::missed;
  isRinging = true;
  silenceAt = advanced(*ring, ringsFor);
  return Event::rings;
}

void Alarm::zoneChanged(Instant now) { watchedFrom = std::max(watchedFrom, now); }

void Alarm::clockMoved(Seconds by) {
  if (snoozedUntil) snoozedUntil = advanced(*snoozedUntil, by);
  if (silenceAt) silenceAt = advanced(*silenceAt, by);
}

FocusNotice Alarm::notice(bool isMissed, const Calendar& calendar) const {
  const auto day = calendar.fields(watchedFrom);
  const std::string time = shortTime(calendar, calendar.instant(day.year, day.month, day.day, hour, minute));
  if (isMissed) return {"alarm", "Missed alarm", "It was set for " + time + ", while this computer slept."};
  return {"alarm", "Alarm", "It is set for " + time + "."};
}

}  // namespace ambrel
