#pragma once
// What the tiles and panels of focus and wellbeing show, made out of core's records.

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "core/focus/Alarm.h"
#include "core/focus/BreakTimer.h"
#include "core/focus/Days.h"
#include "core/focus/HabitList.h"
#include "core/focus/Pomodoro.h"
#include "core/focus/Timers.h"
#include "core/focus/Water.h"

namespace ambrel {

struct PomodoroFace {
  Q_GADGET
  QML_VALUE_TYPE(pomodoroFace)
 public:
  FACE_FIELDS(QString, phaseTitle);  // "Focus", "Break", "Long Break"
  FACE_FIELD(bool, isFocus, true);
  FACE_FIELDS(bool, isRunning, isPaused);
  FACE_FIELDS(QString, remaining, lengthText);  // "18:24", "of 25 min"
  FACE_FIELDS(qreal, percentLeft);
  FACE_FIELDS(int, sessionsToday);

  bool operator==(const PomodoroFace&) const = default;
};
PomodoroFace pomodoroFace(const Pomodoro& timer, const Calendar& calendar, Instant now);

// The focus sessions of this week.
struct FocusWeek {
  Q_GADGET
  QML_VALUE_TYPE(focusWeek)
 public:
  FACE_FIELDS(QVariantList, days);  // {"day": "M", "count": 3, "percent": 60.0, "isToday": false}
  FACE_FIELDS(QString, text);       // "9 this week: Monday 6, Tuesday 3"
  FACE_FIELDS(int, total);
  FACE_FIELDS(int, streak);  // days in a row with a session

  bool operator==(const FocusWeek&) const = default;
};
FocusWeek focusWeek(const DayCounts& history, const Calendar& calendar, Instant now);

struct WaterFace {
  Q_GADGET
  QML_VALUE_TYPE(waterFace)
 public:
  FACE_FIELDS(int, count, goal);
  FACE_FIELDS(bool, remindersOn);
  FACE_FIELDS(qreal, percent);  // of the goal; may exceed a hundred
  FACE_FIELDS(bool, isGoalMet);
  FACE_FIELDS(QString, nextText);  // "Next glass at 14:30"; empty without a reminder

  bool operator==(const WaterFace&) const = default;
};
WaterFace waterFace(const Water& water, const Calendar& calendar, Instant now);

struct StopwatchFace {
  Q_GADGET
  QML_VALUE_TYPE(stopwatchFace)
 public:
  FACE_FIELDS(bool, isRunning);
  FACE_FIELD(bool, isZero, true);  // there is nothing to reset
  FACE_FIELDS(QString, elapsed);   // "1:02:05"

  bool operator==(const StopwatchFace&) const = default;
};
StopwatchFace stopwatchFace(const StopwatchValue& watch, Instant now);

struct TimerFace {
  Q_GADGET
  QML_VALUE_TYPE(timerFace)
 public:
  FACE_FIELDS(bool, isRunning, isFinished);
  FACE_FIELDS(QString, remaining);  // "4:59"
  FACE_FIELDS(QString, detail);     // "until 14:35", "finished at 14:35"; empty before the first start
  FACE_FIELDS(qreal, percentLeft);

  bool operator==(const TimerFace&) const = default;
};
TimerFace timerFace(const QuickTimerValue& timer, const Calendar& calendar, Instant now);

struct BreakFace {
  Q_GADGET
  QML_VALUE_TYPE(breakFace)
 public:
  FACE_FIELDS(bool, isOn, isDue, isOnBreak);
  FACE_FIELDS(QString, countdown);  // to the next break, or to the end of the present one: "12:40"
  FACE_FIELDS(qreal, percentLeft);
  FACE_FIELDS(int, countToday);

  bool operator==(const BreakFace&) const = default;
};
BreakFace breakFace(const BreakTimer& timer, const Calendar& calendar, Instant now);

struct AlarmFace {
  Q_GADGET
  QML_VALUE_TYPE(alarmFace)
 public:
  FACE_FIELDS(bool, isOn);
  FACE_FIELDS(int, hour, minute);
  FACE_FIELDS(bool, isRinging, isSnoozed);
  FACE_FIELDS(QString, time);         // "7:30 AM", the time that is set
  FACE_FIELDS(QString, detail);       // "Tomorrow", "Today", "Ringing", "Snoozed until 7:40 AM", "Off"
  FACE_FIELDS(QString, shortDetail);  // the same for a tile without room: "Until 7:40 AM"

  bool operator==(const AlarmFace&) const = default;
};
AlarmFace alarmFace(const Alarm& alarm, const Calendar& calendar, Instant now);

struct BreathingFace {
  Q_GADGET
  QML_VALUE_TYPE(breathingFace)
 public:
  FACE_FIELDS(bool, isRunning);
  FACE_FIELDS(QString, title, shortTitle);    // "Breathe in", "In"; "Breathe" before the first exercise
  FACE_FIELDS(QString, detail, shortDetail);  // "Round 2 of 5", "2 of 5"; "A minute of calm", "1 minute"
  FACE_FIELDS(qreal, target);                 // how full the lungs are at the end of the step, 0 to 1
  FACE_FIELDS(int, stepMilliseconds);         // how long it takes to get there

  bool operator==(const BreathingFace&) const = default;
};
// `step`: absent before the first exercise, and after one that was stopped.
BreathingFace breathingFace(const std::optional<BreathingStep>& step);

struct HabitsFace {
  Q_GADGET
  QML_VALUE_TYPE(habitsFace)
 public:
  FACE_FIELDS(int, count, doneToday);
  FACE_FIELDS(bool, isFull);
  FACE_FIELDS(int, bestStreak);  // the longest run of any habit, in days

  bool operator==(const HabitsFace&) const = default;
};
HabitsFace habitsFace(const std::vector<Habit>& habits, const Calendar& calendar, Instant now);

// The moods of the last seven days.
struct MoodWeek {
  Q_GADGET
  QML_VALUE_TYPE(moodWeek)
 public:
  FACE_FIELDS(int, today);  // 0 while today has none
  FACE_FIELDS(QString, todayName);
  FACE_FIELDS(QVariantList, days);  // {"day": "M", "mood": 4}, today last; 0 without one
  FACE_FIELDS(QString, text);       // "Monday: Good, Tuesday: Okay"

  bool operator==(const MoodWeek&) const = default;
};
MoodWeek moodWeek(const DayCounts& moods, const Calendar& calendar, Instant now);

}  // namespace ambrel
