#include "core/focus/Pomodoro.h"

#include <algorithm>

namespace ambrel {

using std::chrono::minutes;

std::string_view title(PomodoroPhase phase) {
  switch (phase) {
    case PomodoroPhase::focus:
      return "Focus";
    case PomodoroPhase::shortBreak:
      return "Break";
    case PomodoroPhase::longBreak:
      return "Long Break";
  }
  return {};
}

Seconds Pomodoro::length() const {
  if (begunLength) return *begunLength;
  switch (phase) {
    case PomodoroPhase::focus:
      return minutes(settings.focusMinutes);
    case PomodoroPhase::shortBreak:
      return minutes(settings.breakMinutes);
    case PomodoroPhase::longBreak:
      return minutes(settings.longBreakMinutes);
  }
  return Seconds(0);
}

Seconds Pomodoro::remaining(Instant now) const {
  if (endDate) return std::max(Seconds(0), secondsBetween(now, *endDate));
  return isPaused() ? pausedRemaining : length();
}

void Pomodoro::start(Instant now) {
  if (isRunning()) return;
  begunLength = length();
  endDate = advanced(now, remaining(now));
  pausedRemaining = Seconds(0);
}

void Pomodoro::pause(Instant now) {
  // A phase whose time has come ends at the next tick; there is nothing left to pause.
  if (!isRunning() || remaining(now) <= Seconds(0)) return;
  pausedRemaining = remaining(now);
  endDate.reset();
}

void Pomodoro::reset() {
  endDate.reset();
  begunLength.reset();
  pausedRemaining = Seconds(0);
}

void Pomodoro::skip(Instant now) {
  const bool wasRunning = isRunning();
  reset();
  phase = phase == PomodoroPhase::focus ? PomodoroPhase::shortBreak : PomodoroPhase::focus;
  if (wasRunning) start(now);
}

void Pomodoro::countSession(Instant now, const Calendar& calendar) {
  const std::string today = calendar.dayKey(now);
  completed.add(1, today);
  ++history[today];
  history = newestDays(std::move(history));
}

std::optional<Pomodoro::Ended> Pomodoro::tick(Instant now, const Calendar& calendar) {
  if (!endDate || now < *endDate) return std::nullopt;
  // Told that late, because the machine slept, the user has not come back for the next phase yet.
  const bool isMissed = secondsBetween(*endDate, now) >= Seconds(60);
  reset();
  Ended ended{phase, {"pomodoro", "Break is over", "Ready for the next focus session."}};
  if (phase == PomodoroPhase::focus) {
    countSession(now, calendar);
    const bool isLong = completed.count % std::max(1, settings.sessionsUntilLongBreak) == 0;
    phase = isLong ? PomodoroPhase::longBreak : PomodoroPhase::shortBreak;
    ended.notice.title = "Focus session finished";
    ended.notice.body = std::string("Take a ") + (isLong ? "long " : "") + "break.";
  } else {
    phase = PomodoroPhase::focus;
  }
  if (settings.startsNextPhase && !isMissed) start(now);
  return ended;
}

void Pomodoro::slept(Seconds span) {
  if (endDate && phase == PomodoroPhase::focus) endDate = advanced(*endDate, span);
}

void Pomodoro::clockMoved(Seconds by) {
  if (endDate) endDate = advanced(*endDate, by);
}

}  // namespace ambrel
