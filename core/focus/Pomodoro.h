#pragma once
// The focus timer. As in all timers here, points in time are of the wall clock; besides the commands, two things move
// a running timer: `slept`, after the machine was suspended, and `clockMoved`, after the clock was set.

#include "core/base/EnumText.h"
#include "core/focus/Days.h"
#include "core/focus/FocusNotice.h"

namespace ambrel {

enum class PomodoroPhase { focus, shortBreak, longBreak };
// "Focus", "Break", "Long Break"
std::string_view title(PomodoroPhase phase);

struct PomodoroSettings {
  int focusMinutes = 25;
  int breakMinutes = 5;
  int longBreakMinutes = 15;
  int sessionsUntilLongBreak = 4;
  bool startsNextPhase = false;

  friend bool operator==(const PomodoroSettings&, const PomodoroSettings&) = default;
};

struct Pomodoro {
  struct Ended {
    PomodoroPhase phase;
    FocusNotice notice;
    friend bool operator==(const Ended&, const Ended&) = default;
  };

  PomodoroSettings settings;
  PomodoroPhase phase = PomodoroPhase::focus;
  DayCount completed;
  DayCounts history;
  std::optional<Instant> endDate;      // while it runs
  Seconds pausedRemaining{0};          // while it is paused
  std::optional<Seconds> begunLength;  // of a phase that has begun; new settings are for the next

  bool isRunning() const { return endDate.has_value(); }
  bool isFocusRunning() const { return isRunning() && phase == PomodoroPhase::focus; }
  bool isPaused() const { return !endDate && pausedRemaining > Seconds(0); }
  Seconds length() const;
  // Never below zero, and the whole length while stopped.
  Seconds remaining(Instant now) const;

  // Start and resume in one: from where a pause left the phase.
  void start(Instant now);
  void pause(Instant now);
  // Back to the beginning of the phase, stopped.
  void reset();
  // To the next phase, which runs if this one ran. A skipped focus session is not counted.
  void skip(Instant now);
  // Ends the phase once its time has come.
  std::optional<Ended> tick(Instant now, const Calendar& calendar);
  // Time asleep is not work, so it lengthens a focus session; it is rest, so a break runs on.
  void slept(Seconds span);
  void clockMoved(Seconds by);

  friend bool operator==(const Pomodoro&, const Pomodoro&) = default;

 private:
  void countSession(Instant now, const Calendar& calendar);
};

}  // namespace ambrel
