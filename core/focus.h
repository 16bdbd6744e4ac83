#pragma once
// Focus and wellbeing: the values behind the timers, counters and logs. Every call that depends on the time takes
// `now`, and on the day the Calendar; what has to be told to the user comes back as a record.
//
// Points in time are of the wall clock. Two things move a running timer besides its own commands: `slept`, after the
// machine was suspended, and `clockMoved`, after the clock was set.

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"
#include "core/base/EnumText.h"
#include "core/base/UUID.h"

namespace ambrel {

// Days are keyed by Calendar::dayKey.
using DayCounts = std::map<std::string, int>;

// A count that is valid for one day and begins again on another.
struct DayCount {
  int count = 0;
  std::optional<std::string> day;

  int today(const std::string& todayKey) const { return day == todayKey ? count : 0; }
  void add(int difference, const std::string& todayKey);
  friend bool operator==(const DayCount&, const DayCount&) = default;
};

// A message of the desktop; a later one with the same identifier replaces it.
struct FocusNotice {
  std::string identifier;
  std::string title;
  std::string body;
  friend bool operator==(const FocusNotice&, const FocusNotice&) = default;
};

// --- Focus timer -----------------------------------------------------------------------------------------------

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
  // Time asleep is no work, so it lengthens a focus session; it is rest, so a break runs on.
  void slept(Seconds span);
  void clockMoved(Seconds by);

  friend bool operator==(const Pomodoro&, const Pomodoro&) = default;

 private:
  void countSession(Instant now, const Calendar& calendar);
};

// --- Water -----------------------------------------------------------------------------------------------------

struct Water {
  DayCount glasses;
  std::optional<Instant> lastDrinkAt;
  int goal = 8;              // 1...30
  int intervalMinutes = 30;  // 5...480
  bool remindersOn = true;

  // After a day whose goal was met, no glass is due before this hour.
  static constexpr int morningHour = 8;

  void add(Instant now, const Calendar& calendar);
  void remove(Instant now, const Calendar& calendar);
  bool isGoalMet(Instant now, const Calendar& calendar) const;
  // When the next glass is due, whether that has passed or not: absent without reminders, before the first glass
  // ever, and once today's goal is met.
  std::optional<Instant> dueAt(Instant now, const Calendar& calendar) const;
  // When to remind, if `now` something has changed: `dueAt`, but at least a minute ahead.
  std::optional<Instant> reminderAt(Instant now, const Calendar& calendar) const;
  FocusNotice notice(Instant now, const Calendar& calendar) const;
  void clockMoved(Seconds by);

  friend bool operator==(const Water&, const Water&) = default;
};

// --- Stopwatch and quick timer ---------------------------------------------------------------------------------

struct StopwatchValue {
  std::optional<Instant> startedAt;  // while it runs
  Seconds accumulated{0};            // from earlier runs

  Seconds elapsed(Instant now) const;
  void start(Instant now);
  void stop(Instant now);
  void reset() { *this = {}; }
  void clockMoved(Seconds by);
  friend bool operator==(const StopwatchValue&, const StopwatchValue&) = default;
};

struct QuickTimerValue {
  std::optional<Instant> endDate;  // while it runs
  Seconds duration{0};
  std::optional<Instant> finishedAt;  // until the next start or a look at it

  // One second to 24 hours.
  void start(Seconds length, Instant now);
  void cancel() { *this = {}; }
  Seconds remaining(Instant now) const;
  // Says whether it finished just now.
  bool tick(Instant now);
  FocusNotice notice() const;
  void clockMoved(Seconds by);
  friend bool operator==(const QuickTimerValue&, const QuickTimerValue&) = default;
};

// --- Breaks ----------------------------------------------------------------------------------------------------

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
  // The next moment at which `tick` has something to do.
  std::optional<Instant> nextChange() const;
  // True when the reminder came due just now. `isEnabled` is asked then; unless it agrees, a new interval begins.
  bool tick(Instant now, const Calendar& calendar, bool isEnabled);
  // A sleep as long as a break was one: a new interval begins.
  void slept(Seconds span, Instant now);
  void clockMoved(Seconds by);
  FocusNotice notice() const;
  friend bool operator==(const BreakTimer&, const BreakTimer&) = default;

 private:
  void beginInterval(Instant now);
};

// --- Alarm -----------------------------------------------------------------------------------------------------

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
  // A ring that could not sound in its five minutes, because the machine slept, is missed and only told of. `isEnabled`
  // is asked when it is to ring; unless it agrees, that ring is passed over.
  Event tick(Instant now, const Calendar& calendar, bool isEnabled);
  FocusNotice notice(bool isMissed, const Calendar& calendar) const;
  friend bool operator==(const Alarm&, const Alarm&) = default;
};

// --- Breathing -------------------------------------------------------------------------------------------------

// Where an exercise stands: rounds of breathing in for 4 seconds, holding for 4 and breathing out for 6.
struct BreathingStep {
  enum class Kind { breatheIn, hold, breatheOut, done };
  Kind kind = Kind::done;
  double fullness = 0;  // of the lungs, 0 to 1
  Seconds left{0};      // of this step
  int round = 0;        // from 1
  friend bool operator==(const BreathingStep&, const BreathingStep&) = default;
};
inline constexpr int breathingRounds = 5;
BreathingStep breathingStep(Seconds sinceStart);
// "Breathe in", "Hold", "Breathe out", "Well done"
std::string_view title(BreathingStep::Kind kind);

// --- Logs by day -----------------------------------------------------------------------------------------------

struct FocusStats {
  struct Day {
    Instant date;  // the beginning of the day
    int count = 0;
    friend bool operator==(const Day&, const Day&) = default;
  };
  // The seven days of the week that holds `date`, from the locale's first weekday on.
  static std::array<Day, 7> week(const DayCounts& history, Instant date, const Calendar& calendar);
  static int total(const std::array<Day, 7>& week);
};

struct Streak {
  // Days in a row up to today. A day that is not over does not break a run: without today it counts from yesterday.
  static int length(const std::set<std::string>& days, Instant now, const Calendar& calendar);
};

struct Habit {
  UUID id;
  std::string name;
  std::set<std::string> days;  // on which it was done
  friend bool operator==(const Habit&, const Habit&) = default;
};
inline constexpr std::size_t mostHabits = 12;
// White space around a name does not count. Absent when the name is empty or there are as many as there may be.
std::optional<std::vector<Habit>> addingHabit(std::vector<Habit> habits, std::string_view name, UUID id);

// 1, the worst, to 5.
struct Mood {
  static constexpr int worst = 1, best = 5;
  // "Awful", "Low", "Okay", "Good", "Great"; "" for anything else.
  static std::string_view name(int mood);
};
// The day keys of the last seven days, today last.
std::array<std::string, 7> lastSevenDays(Instant now, const Calendar& calendar);

// What is kept of a log by day: the newest days, as many as a year has. The present day does not come into it, as a
// clock that is wrong for once would empty the log.
DayCounts newestDays(DayCounts counts);

// "18:24", "1:02:05": to whole seconds, upwards, so that a timer shows 0:00 only at its end.
std::string countdownText(Seconds left);
// "1:02:05", to whole seconds, downwards.
std::string elapsedText(Seconds elapsed);

}  // namespace ambrel
