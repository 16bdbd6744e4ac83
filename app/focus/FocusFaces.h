#pragma once
// What the tiles and panels of focus and wellbeing show, made out of core's records.

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

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
  Q_PROPERTY(QString phaseTitle MEMBER phaseTitle FINAL)
  Q_PROPERTY(bool isFocus MEMBER isFocus FINAL)
  Q_PROPERTY(bool isRunning MEMBER isRunning FINAL)
  Q_PROPERTY(bool isPaused MEMBER isPaused FINAL)
  Q_PROPERTY(QString remaining MEMBER remaining FINAL)
  Q_PROPERTY(QString lengthText MEMBER lengthText FINAL)
  Q_PROPERTY(qreal percentLeft MEMBER percentLeft FINAL)
  Q_PROPERTY(int sessionsToday MEMBER sessionsToday FINAL)
  Q_PROPERTY(int focusMinutes MEMBER focusMinutes FINAL)
  Q_PROPERTY(int breakMinutes MEMBER breakMinutes FINAL)
  Q_PROPERTY(int longBreakMinutes MEMBER longBreakMinutes FINAL)
  Q_PROPERTY(int sessionsUntilLongBreak MEMBER sessionsUntilLongBreak FINAL)
  Q_PROPERTY(bool startsNextPhase MEMBER startsNextPhase FINAL)

 public:
  QString phaseTitle;  // "Focus", "Break", "Long Break"
  bool isFocus = true, isRunning = false, isPaused = false;
  QString remaining, lengthText;  // "18:24", "of 25 min"
  qreal percentLeft = 0;
  int sessionsToday = 0;
  int focusMinutes = 0, breakMinutes = 0, longBreakMinutes = 0, sessionsUntilLongBreak = 0;
  bool startsNextPhase = false;

  bool operator==(const PomodoroFace&) const = default;
};
PomodoroFace pomodoroFace(const Pomodoro& timer, const Calendar& calendar, Instant now);

// The focus sessions of this week.
struct FocusWeek {
  Q_GADGET
  QML_VALUE_TYPE(focusWeek)
  Q_PROPERTY(QVariantList days MEMBER days FINAL)
  Q_PROPERTY(QString text MEMBER text FINAL)
  Q_PROPERTY(int total MEMBER total FINAL)
  Q_PROPERTY(int streak MEMBER streak FINAL)

 public:
  QVariantList days;  // {"day": "M", "count": 3, "percent": 60.0, "isToday": false}
  QString text;       // "9 this week: Monday 6, Tuesday 3"
  int total = 0;
  int streak = 0;  // days in a row with a session

  bool operator==(const FocusWeek&) const = default;
};
FocusWeek focusWeek(const DayCounts& history, const Calendar& calendar, Instant now);

struct WaterFace {
  Q_GADGET
  QML_VALUE_TYPE(waterFace)
  Q_PROPERTY(int count MEMBER count FINAL)
  Q_PROPERTY(int goal MEMBER goal FINAL)
  Q_PROPERTY(int intervalMinutes MEMBER intervalMinutes FINAL)
  Q_PROPERTY(bool remindersOn MEMBER remindersOn FINAL)
  Q_PROPERTY(qreal percent MEMBER percent FINAL)
  Q_PROPERTY(bool isGoalMet MEMBER isGoalMet FINAL)
  Q_PROPERTY(QString nextText MEMBER nextText FINAL)

 public:
  int count = 0, goal = 0, intervalMinutes = 0;
  bool remindersOn = false;
  qreal percent = 0;  // of the goal; may exceed a hundred
  bool isGoalMet = false;
  QString nextText;  // "Next glass at 14:30"; empty without a reminder

  bool operator==(const WaterFace&) const = default;
};
WaterFace waterFace(const Water& water, const Calendar& calendar, Instant now);

struct StopwatchFace {
  Q_GADGET
  QML_VALUE_TYPE(stopwatchFace)
  Q_PROPERTY(bool isRunning MEMBER isRunning FINAL)
  Q_PROPERTY(bool isZero MEMBER isZero FINAL)
  Q_PROPERTY(QString elapsed MEMBER elapsed FINAL)

 public:
  bool isRunning = false;
  bool isZero = true;  // there is nothing to reset
  QString elapsed;     // "1:02:05"

  bool operator==(const StopwatchFace&) const = default;
};
StopwatchFace stopwatchFace(const StopwatchValue& watch, Instant now);

struct TimerFace {
  Q_GADGET
  QML_VALUE_TYPE(timerFace)
  Q_PROPERTY(bool isRunning MEMBER isRunning FINAL)
  Q_PROPERTY(bool isFinished MEMBER isFinished FINAL)
  Q_PROPERTY(QString remaining MEMBER remaining FINAL)
  Q_PROPERTY(QString detail MEMBER detail FINAL)
  Q_PROPERTY(qreal percentLeft MEMBER percentLeft FINAL)

 public:
  bool isRunning = false, isFinished = false;
  QString remaining;  // "4:59"
  QString detail;     // "until 14:35", "finished at 14:35"; empty before the first start
  qreal percentLeft = 0;

  bool operator==(const TimerFace&) const = default;
};
TimerFace timerFace(const QuickTimerValue& timer, const Calendar& calendar, Instant now);

struct BreakFace {
  Q_GADGET
  QML_VALUE_TYPE(breakFace)
  Q_PROPERTY(bool isOn MEMBER isOn FINAL)
  Q_PROPERTY(int intervalMinutes MEMBER intervalMinutes FINAL)
  Q_PROPERTY(bool isDue MEMBER isDue FINAL)
  Q_PROPERTY(bool isOnBreak MEMBER isOnBreak FINAL)
  Q_PROPERTY(QString countdown MEMBER countdown FINAL)
  Q_PROPERTY(qreal percentLeft MEMBER percentLeft FINAL)
  Q_PROPERTY(int countToday MEMBER countToday FINAL)

 public:
  bool isOn = false;
  int intervalMinutes = 0;
  bool isDue = false, isOnBreak = false;
  QString countdown;  // to the next break, or to the end of the present one: "12:40"
  qreal percentLeft = 0;
  int countToday = 0;

  bool operator==(const BreakFace&) const = default;
};
BreakFace breakFace(const BreakTimer& timer, const Calendar& calendar, Instant now);

struct AlarmFace {
  Q_GADGET
  QML_VALUE_TYPE(alarmFace)
  Q_PROPERTY(bool isOn MEMBER isOn FINAL)
  Q_PROPERTY(int hour MEMBER hour FINAL)
  Q_PROPERTY(int minute MEMBER minute FINAL)
  Q_PROPERTY(int snoozeMinutes MEMBER snoozeMinutes FINAL)
  Q_PROPERTY(bool isRinging MEMBER isRinging FINAL)
  Q_PROPERTY(bool isSnoozed MEMBER isSnoozed FINAL)
  Q_PROPERTY(QString time MEMBER time FINAL)
  Q_PROPERTY(QString detail MEMBER detail FINAL)
  Q_PROPERTY(QString shortDetail MEMBER shortDetail FINAL)

 public:
  bool isOn = false;
  int hour = 0, minute = 0, snoozeMinutes = 0;
  bool isRinging = false, isSnoozed = false;
  QString time;         // "7:30 AM", the time that is set
  QString detail;       // "Tomorrow", "Today", "Ringing", "Snoozed until 7:40 AM", "Off"
  QString shortDetail;  // the same for a tile without room: "Until 7:40 AM"

  bool operator==(const AlarmFace&) const = default;
};
AlarmFace alarmFace(const Alarm& alarm, const Calendar& calendar, Instant now);

struct BreathingFace {
  Q_GADGET
  QML_VALUE_TYPE(breathingFace)
  Q_PROPERTY(bool isRunning MEMBER isRunning FINAL)
  Q_PROPERTY(QString title MEMBER title FINAL)
  Q_PROPERTY(QString shortTitle MEMBER shortTitle FINAL)
  Q_PROPERTY(QString detail MEMBER detail FINAL)
  Q_PROPERTY(QString shortDetail MEMBER shortDetail FINAL)
  Q_PROPERTY(qreal target MEMBER target FINAL)
  Q_PROPERTY(int stepMilliseconds MEMBER stepMilliseconds FINAL)

 public:
  bool isRunning = false;
  QString title, shortTitle;    // "Breathe in", "In"; "Breathe" before the first exercise
  QString detail, shortDetail;  // "Round 2 of 5", "2 of 5"; "A minute of calm", "1 minute"
  qreal target = 0;             // how full the lungs are at the end of the step, 0 to 1
  int stepMilliseconds = 0;     // how long it takes to get there

  bool operator==(const BreathingFace&) const = default;
};
// `step`: absent before the first exercise, and after one that was stopped.
BreathingFace breathingFace(const std::optional<BreathingStep>& step);

struct HabitsFace {
  Q_GADGET
  QML_VALUE_TYPE(habitsFace)
  Q_PROPERTY(int count MEMBER count FINAL)
  Q_PROPERTY(int doneToday MEMBER doneToday FINAL)
  Q_PROPERTY(bool isFull MEMBER isFull FINAL)
  Q_PROPERTY(int bestStreak MEMBER bestStreak FINAL)

 public:
  int count = 0, doneToday = 0;
  bool isFull = false;
  int bestStreak = 0;  // the longest run of any habit, in days

  bool operator==(const HabitsFace&) const = default;
};
HabitsFace habitsFace(const std::vector<Habit>& habits, const Calendar& calendar, Instant now);

// The moods of the last seven days.
struct MoodWeek {
  Q_GADGET
  QML_VALUE_TYPE(moodWeek)
  Q_PROPERTY(int today MEMBER today FINAL)
  Q_PROPERTY(QString todayName MEMBER todayName FINAL)
  Q_PROPERTY(QVariantList days MEMBER days FINAL)
  Q_PROPERTY(QString text MEMBER text FINAL)

 public:
  int today = 0;  // 0 while today has none
  QString todayName;
  QVariantList days;  // {"day": "M", "mood": 4}, today last; 0 without one
  QString text;       // "Monday: Good, Tuesday: Okay"

  bool operator==(const MoodWeek&) const = default;
};
MoodWeek moodWeek(const DayCounts& moods, const Calendar& calendar, Instant now);

}  // namespace ambrel
