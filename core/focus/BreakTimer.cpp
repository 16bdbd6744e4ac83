#include "core/focus/BreakTimer.h"

#include <algorithm>

namespace ambrel {

using std::chrono::minutes;

std::string_view keyPrefix(BreakKind kind) {
  switch (kind) {
    case BreakKind::eyes:
      return "eyeBreak";
    case BreakKind::stand:
      return "standUp";
  }
  return {};
}

void BreakTimer::beginInterval(Instant now) {
  isDue = false;
  nextDue = now + minutes(intervalMinutes);
}

void BreakTimer::turn(bool on, Instant now) {
  if (on == isOn) return;
  isOn = on;
  beginInterval(now);
}

void BreakTimer::setInterval(int newMinutes, Instant now) {
  intervalMinutes = std::clamp(newMinutes, 1, 240);
  beginInterval(now);
}

void BreakTimer::takeBreak(Instant now, const Calendar& calendar) {
  beginInterval(now);
  switch (kind) {
    case BreakKind::eyes:
      breakEnds = advanced(now, eyeBreakLength);
      break;
    case BreakKind::stand:
      taken.add(1, calendar.dayKey(now));
      break;
  }
}

void BreakTimer::endBreak(Instant now) {
  if (!breakEnds) return;
  breakEnds.reset();
  beginInterval(now);
}

Seconds BreakTimer::left(Instant now) const {
  return std::max(Seconds(0), secondsBetween(now, breakEnds.value_or(nextDue)));
}

Seconds BreakTimer::length() const { return breakEnds ? eyeBreakLength : Seconds(minutes(intervalMinutes)); }

std::optional<Instant> BreakTimer::nextChange() const {
  if (breakEnds) return breakEnds;
  if (!isOn) return std::nullopt;
  return isDue ? advanced(nextDue, dueFor) : nextDue;
}

bool BreakTimer::tick(Instant now, const Calendar& calendar, bool isEnabled) {
  const auto change = nextChange();
  if (!change || now < *change) return false;
  if (breakEnds) {
    breakEnds.reset();
    taken.add(1, calendar.dayKey(now));
    beginInterval(now);
    return false;
  }
  // Nobody answered, or nobody is to be disturbed: the next chance is an interval away.
  if (isDue || !isEnabled) {
    beginInterval(now);
    return false;
  }
  isDue = true;
  return true;
}

void BreakTimer::slept(Seconds span, Instant now) {
  const Seconds breakLength = kind == BreakKind::eyes ? eyeBreakLength : Seconds(60);
  if (span >= breakLength && !breakEnds) beginInterval(now);
}

void BreakTimer::clockMoved(Seconds by) {
  nextDue = advanced(nextDue, by);
  if (breakEnds) breakEnds = advanced(*breakEnds, by);
}

FocusNotice BreakTimer::notice() const {
  const std::string identifier(keyPrefix(kind));
  switch (kind) {
    case BreakKind::eyes:
      return {identifier, "Time for an eye break", "Look at something far away for 20 seconds."};
    case BreakKind::stand:
      return {identifier, "Time to stand up", "Stretch your legs for a minute."};
  }
  return {};
}

}  // namespace ambrel
