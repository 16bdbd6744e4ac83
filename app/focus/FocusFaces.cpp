#include "app/focus/FocusFaces.h"

#include <algorithm>
#include <cmath>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

qreal percentOf(Seconds part, Seconds whole) {
  return whole.count() > 0 ? std::clamp(100.0 * part.count() / whole.count(), 0.0, 100.0) : 0;
}

// "Monday" and "M".
QString dayName(const Calendar& calendar, Instant day) { return toQString(formattedDate(calendar, day, "EEEE")); }
QString dayLetter(const Calendar& calendar, Instant day) { return toQString(formattedDate(calendar, day, "EEEEE")); }

}  // namespace

PomodoroFace pomodoroFace(const Pomodoro& timer, const Calendar& calendar, Instant now) {
  const Seconds length = timer.length(), left = timer.remaining(now);
  return {.phaseTitle = toQString(title(timer.phase)),
          .isFocus = timer.phase == PomodoroPhase::focus,
          .isRunning = timer.isRunning(),
          .isPaused = timer.isPaused(),
          .remaining = toQString(countdownText(left)),
          .lengthText = QObject::tr("of %1 min").arg(static_cast<int>(length.count() / 60)),
          .percentLeft = percentOf(left, length),
          .sessionsToday = timer.completed.today(calendar.dayKey(now))};
}

FocusWeek focusWeek(const DayCounts& history, const Calendar& calendar, Instant now) {
  const auto week = FocusStats::week(history, now, calendar);
  const std::string today = calendar.dayKey(now);
  const int most = std::max(1, std::ranges::max(week, {}, &FocusStats::Day::count).count);
  FocusWeek face;
  QStringList words;
  for (const FocusStats::Day& day : week) {
    if (day.count > 0) words << QStringLiteral("%1 %2").arg(dayName(calendar, day.date)).arg(day.count);
    face.days << QVariantMap{{QStringLiteral("day"), dayLetter(calendar, day.date)},
                             {QStringLiteral("count"), day.count},
                             {QStringLiteral("percent"), 100.0 * day.count / most},
                             {QStringLiteral("isToday"), calendar.dayKey(day.date) == today}};
  }
  face.total = FocusStats::total(week);
  face.text = face.total == 0 ? QObject::tr("No focus sessions this week yet")
                              : QObject::tr("%1 this week: ").arg(face.total) + words.join(QStringLiteral(", "));
  std::set<std::string> days;
  for (const auto& [day, count] : history)
    if (count > 0) days.insert(day);
  face.streak = Streak::length(days, now, calendar);
  return face;
}

WaterFace waterFace(const Water& water, const Calendar& calendar, Instant now) {
  const int count = water.glasses.today(calendar.dayKey(now));
  const bool isGoalMet = count >= water.goal;
  return {.count = count,
          .goal = water.goal,
          .remindersOn = water.remindersOn,
          .percent = 100.0 * count / water.goal,
          .isGoalMet = isGoalMet,
          .nextText = water.reminder && !isGoalMet
                          ? QObject::tr("Next glass at %1").arg(toQString(shortTime(calendar, *water.reminder)))
                          : QString()};
}

StopwatchFace stopwatchFace(const StopwatchValue& watch, Instant now) {
  return {.isRunning = watch.startedAt.has_value(),
          .isZero = watch == StopwatchValue(),
          .elapsed = toQString(elapsedText(watch.elapsed(now)))};
}

TimerFace timerFace(const QuickTimerValue& timer, const Calendar& calendar, Instant now) {
  TimerFace face;
  face.isRunning = timer.endDate.has_value();
  face.isFinished = timer.finishedAt.has_value();
  if (!face.isRunning && !face.isFinished) return face;
  face.remaining = toQString(countdownText(timer.remaining(now)));
  face.detail = timer.endDate ? QObject::tr("until %1").arg(toQString(shortTime(calendar, *timer.endDate)))
                              : QObject::tr("finished at %1").arg(toQString(shortTime(calendar, *timer.finishedAt)));
  face.percentLeft = percentOf(timer.remaining(now), timer.duration);
  return face;
}

BreakFace breakFace(const BreakTimer& timer, const Calendar& calendar, Instant now) {
  const Seconds left = timer.left(now);
  return {.isOn = timer.isOn,
          .isDue = timer.isDue,
          .isOnBreak = timer.breakEnds.has_value(),
          .countdown = timer.nextChange() ? toQString(countdownText(left)) : QString(),
          .percentLeft = percentOf(left, timer.length()),
          .countToday = timer.taken.today(calendar.dayKey(now))};
}

AlarmFace alarmFace(const Alarm& alarm, const Calendar& calendar, Instant now) {
  const auto day = calendar.fields(now);
  AlarmFace face{
      .isOn = alarm.isOn,
      .hour = alarm.hour,
      .minute = alarm.minute,
      .isRinging = alarm.isRinging,
      .isSnoozed = alarm.snoozedUntil.has_value(),
      .time = toQString(shortTime(calendar, calendar.instant(day.year, day.month, day.day, alarm.hour, alarm.minute))),
      .detail = {},
      .shortDetail = {}};
  const auto ring = alarm.nextRing(calendar);
  if (!face.isRinging && ring && face.isSnoozed) {
    const QString end = toQString(shortTime(calendar, *ring));
    face.detail = QObject::tr("Snoozed until %1").arg(end);
    face.shortDetail = QObject::tr("Until %1").arg(end);
  } else {
    face.detail = face.shortDetail = face.isRinging                        ? QObject::tr("Ringing")
                                     : !ring                               ? QObject::tr("Off")
                                     : *ring < calendar.startOfDay(now, 1) ? QObject::tr("Today")
                                                                           : QObject::tr("Tomorrow");
  }
  return face;
}

BreathingFace breathingFace(const std::optional<BreathingStep>& step) {
  const bool isRunning = step && step->kind != BreathingStep::Kind::done;
  const bool isFull = isRunning && step->kind != BreathingStep::Kind::breatheOut;
  return {.isRunning = isRunning,
          .title = step ? toQString(title(step->kind)) : QObject::tr("Breathe"),
          .shortTitle = step ? toQString(shortTitle(step->kind)) : QObject::tr("Breathe"),
          .detail = isRunning ? QObject::tr("Round %1 of %2").arg(step->round).arg(breathingRounds)
                              : QObject::tr("A minute of calm"),
          .shortDetail =
              isRunning ? QObject::tr("%1 of %2").arg(step->round).arg(breathingRounds) : QObject::tr("1 minute"),
          .target = isFull ? 1.0 : 0.0,
          .stepMilliseconds = isRunning ? static_cast<int>(std::lround(step->left.count() * 1000)) : 300};
}

HabitsFace habitsFace(const std::vector<Habit>& habits, const Calendar& calendar, Instant now) {
  const std::string today = calendar.dayKey(now);
  HabitsFace face{.count = static_cast<int>(habits.size()), .isFull = habits.size() >= mostHabits};
  for (const Habit& habit : habits) {
    face.doneToday += habit.days.contains(today) ? 1 : 0;
    face.bestStreak = std::max(face.bestStreak, Streak::length(habit.days, now, calendar));
  }
  return face;
}

MoodWeek moodWeek(const DayCounts& moods, const Calendar& calendar, Instant now) {
  MoodWeek face;
  QStringList words;
  const auto keys = lastSevenDays(now, calendar);
  for (int i = 0; i < 7; ++i) {
    const auto found = moods.find(keys[static_cast<std::size_t>(i)]);
    const Instant day = calendar.startOfDay(now, i - 6);
    face.today = found == moods.end() ? 0 : found->second;
    face.todayName = toQString(Mood::name(face.today));
    if (face.today != 0) words << dayName(calendar, day) + QStringLiteral(": ") + face.todayName;
    face.days << QVariantMap{{QStringLiteral("day"), dayLetter(calendar, day)}, {QStringLiteral("mood"), face.today}};
  }
  face.text = words.join(QStringLiteral(", "));
  return face;
}

}  // namespace ambrel
