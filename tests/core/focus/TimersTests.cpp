#include <gtest/gtest.h>

#include "core/focus/Pomodoro.h"
#include "core/focus/Timers.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

const Calendar berlin("Europe/Berlin", "de_DE");
const Instant morning = at("2026-11-20T08:00:00Z");

// Starts the present phase and ends it on the second.
Pomodoro::Ended ended(Pomodoro& timer, Instant& now) {
  timer.start(now);
  now = *timer.endDate;
  return timer.tick(now, berlin).value();
}

TEST(Pomodoro, GoesThroughItsPhasesWithALongBreakAfterEveryFourth) {
  Pomodoro timer;
  Instant now = morning;
  for (int session = 1; session <= 8; ++session) {
    SCOPED_TRACE(session);
    const bool isLong = session % 4 == 0;
    EXPECT_EQ(
        ended(timer, now),
        (Pomodoro::Ended{PomodoroPhase::focus,
                         {"pomodoro", "Focus session finished", isLong ? "Take a long break." : "Take a break."}}));
    EXPECT_EQ(timer.phase, isLong ? PomodoroPhase::longBreak : PomodoroPhase::shortBreak);
    EXPECT_EQ(timer.completed.count, session);
    EXPECT_FALSE(timer.isRunning()) << "the next phase waits for the user";
    const auto breakPhase = timer.phase;
    EXPECT_EQ(ended(timer, now),
              (Pomodoro::Ended{breakPhase, {"pomodoro", "Break is over", "Ready for the next focus session."}}));
    EXPECT_EQ(timer.phase, PomodoroPhase::focus);
  }
  // Eight sessions of 25 minutes, six breaks of 5 and two of 15.
  EXPECT_EQ(now - morning, minutes(8 * 25 + 6 * 5 + 2 * 15));
  EXPECT_EQ(timer.history, (DayCounts{{"2026-11-20", 8}}));
}

TEST(Pomodoro, KeepsWhatIsLeftWhilePaused) {
  Pomodoro timer;
  timer.start(morning);
  const Instant pausedAt = morning + minutes(25) - seconds(90);
  timer.pause(pausedAt);
  EXPECT_EQ(timer.pausedRemaining, seconds(90));
  EXPECT_EQ(timer.endDate, std::nullopt);
  EXPECT_TRUE(timer.isPaused());
  EXPECT_EQ(timer.remaining(pausedAt + hours(3)), seconds(90));
  EXPECT_FALSE(timer.tick(pausedAt + hours(3), berlin));
  const Instant resumedAt = pausedAt + hours(3);
  timer.start(resumedAt);
  EXPECT_EQ(timer.endDate, resumedAt + seconds(90));
  EXPECT_FALSE(timer.isPaused());

  timer.pause(resumedAt + seconds(90));
  EXPECT_TRUE(timer.isRunning()) << "a phase whose time has come ends; a pause would lose it";
}

TEST(Pomodoro, StartsOnceAndResetsToTheBeginningOfThePhase) {
  Pomodoro timer;
  timer.start(morning);
  EXPECT_FALSE(timer.tick(morning + minutes(25) - seconds(1), berlin)) << "it ends no earlier";
  timer.start(morning + minutes(10));
  EXPECT_EQ(timer.remaining(morning + minutes(10)), minutes(15)) << "a second start changes nothing";
  timer.pause(morning + minutes(10));
  timer.reset();
  EXPECT_EQ(timer.remaining(morning), minutes(25));
  EXPECT_FALSE(timer.isPaused());
  timer.start(morning);
  timer.reset();
  EXPECT_FALSE(timer.isRunning());
}

TEST(Pomodoro, TakesNewLengthsForTheNextPhase) {
  Pomodoro timer;
  timer.settings.focusMinutes = 50;
  EXPECT_EQ(timer.remaining(morning), minutes(50)) << "it has not begun";
  timer.start(morning);
  timer.settings.focusMinutes = 10;
  timer.settings.breakMinutes = 3;
  EXPECT_EQ(timer.length(), minutes(50));
  timer.pause(morning + minutes(20));
  EXPECT_EQ(timer.length(), minutes(50));
  timer.skip(morning);
  EXPECT_EQ(timer.length(), minutes(3));
}

TEST(Pomodoro, SkipsWithoutCounting) {
  Pomodoro timer;
  timer.skip(morning);
  EXPECT_EQ(timer.phase, PomodoroPhase::shortBreak) << "no session done is no reason for a long break";
  EXPECT_FALSE(timer.isRunning());
  timer.skip(morning);
  EXPECT_EQ(timer.phase, PomodoroPhase::focus);
  timer.start(morning);
  timer.skip(morning + minutes(24));
  EXPECT_EQ(timer.endDate, morning + minutes(29)) << "it ran, so the break runs";
  EXPECT_EQ(timer.completed.count, 0);
  EXPECT_TRUE(timer.history.empty());
  timer.pause(morning + minutes(25));
  timer.skip(morning + minutes(25));
  EXPECT_EQ(timer.remaining(morning), minutes(25)) << "what a pause left belongs to its own phase";
}

TEST(Pomodoro, CountsASessionForTheDayOnWhichItEnds) {
  Pomodoro timer;
  timer.completed = {3, "2026-11-20"};
  timer.history = {{"2026-11-20", 3}};
  timer.start(at("2026-11-20T22:50:00Z"));  // 23:50 in Berlin
  ASSERT_TRUE(timer.tick(at("2026-11-20T23:15:00Z"), berlin));
  EXPECT_EQ(timer.completed, (DayCount{1, "2026-11-21"}));
  EXPECT_EQ(timer.history, (DayCounts{{"2026-11-20", 3}, {"2026-11-21", 1}}));
  EXPECT_EQ(timer.phase, PomodoroPhase::shortBreak) << "the new day begins a new round";
  EXPECT_EQ(timer.completed.today("2026-11-22"), 0);
}

TEST(Pomodoro, StartsTheNextPhaseByItselfIfAskedTo) {
  Pomodoro timer;
  timer.settings.startsNextPhase = true;
  timer.start(morning);
  const Instant late = morning + minutes(25) + seconds(30);
  ASSERT_TRUE(timer.tick(late, berlin));
  EXPECT_EQ(timer.endDate, late + minutes(5)) << "a late end does not shorten the break";
  // The lid was closed in the break, and opened in the morning.
  timer.slept(hours(9));
  ASSERT_TRUE(timer.tick(late + hours(9), berlin));
  EXPECT_EQ(timer.phase, PomodoroPhase::focus);
  EXPECT_FALSE(timer.isRunning()) << "nobody is at work yet";
}

TEST(Pomodoro, TakesSleepForNoWorkAndForRest) {
  Pomodoro timer;
  timer.start(morning);
  timer.slept(hours(8));
  EXPECT_FALSE(timer.tick(morning + hours(8) + minutes(10), berlin));
  EXPECT_EQ(timer.remaining(morning + hours(8) + minutes(10)), minutes(15));
  ASSERT_TRUE(timer.tick(morning + hours(8) + minutes(25), berlin));

  const Instant rest = morning + hours(9);
  timer.start(rest);
  timer.slept(hours(1));
  EXPECT_TRUE(timer.tick(rest + hours(1), berlin)) << "the break is over when the machine wakes";

  timer.pause(rest);
  timer.slept(hours(1));
  EXPECT_EQ(timer.endDate, std::nullopt);
}

TEST(Pomodoro, DoesNotCareWhatTheClockIsSetTo) {
  Pomodoro timer;
  timer.start(morning);
  timer.clockMoved(-hours(2));
  EXPECT_EQ(timer.remaining(morning - hours(2) + minutes(5)), minutes(20));
}

const Instant noon = at("2026-11-21T12:00:00Z");

TEST(Stopwatch, AddsUpItsRuns) {
  StopwatchValue watch;
  EXPECT_EQ(watch.elapsed(noon), Seconds(0));
  watch.start(noon);
  watch.start(noon + seconds(5));
  EXPECT_EQ(watch.elapsed(noon + seconds(10)), Seconds(10));
  watch.stop(noon + seconds(10));
  watch.stop(noon + seconds(15));
  EXPECT_EQ(watch.elapsed(noon + seconds(60)), Seconds(10));
  watch.start(noon + seconds(60));
  EXPECT_EQ(watch.elapsed(noon + seconds(61)), Seconds(11));
  watch.clockMoved(-hours(1));
  EXPECT_EQ(watch.elapsed(noon + seconds(62) - hours(1)), Seconds(12));
  EXPECT_EQ(watch.elapsed(noon - hours(9)), Seconds(10)) << "a clock that was set back takes nothing away";
  watch.reset();
  EXPECT_EQ(watch, StopwatchValue{});
}

TEST(QuickTimer, FinishesOnce) {
  QuickTimerValue timer;
  timer.start(minutes(5), noon);
  EXPECT_EQ(timer.remaining(noon + minutes(2)), minutes(3));
  EXPECT_FALSE(timer.tick(noon + minutes(5) - seconds(1)));
  EXPECT_TRUE(timer.tick(noon + minutes(6)));
  EXPECT_EQ(timer.finishedAt, noon + minutes(5));
  EXPECT_FALSE(timer.tick(noon + minutes(7)));
  EXPECT_EQ(timer.notice(), (FocusNotice{"timer", "Timer finished", "5:00 is over."}));
  timer.start(minutes(1), noon);
  EXPECT_EQ(timer.finishedAt, std::nullopt);
  timer.cancel();
  EXPECT_FALSE(timer.tick(noon + hours(1)));
}

TEST(QuickTimer, KeepsItsLengthWithinADay) {
  QuickTimerValue timer;
  timer.start(Seconds(-3), noon);
  EXPECT_EQ(timer.endDate, noon + seconds(1));
  timer.start(hours(1000), noon);
  EXPECT_EQ(timer.endDate, noon + hours(24));
  timer.clockMoved(hours(1));
  EXPECT_EQ(timer.remaining(noon + hours(1)), hours(24));
}

TEST(Breathing, GoesThroughItsRounds) {
  using enum BreathingStep::Kind;
  const std::tuple<double, BreathingStep::Kind, double, double, int> rows[] = {
      {0, breatheIn, 0, 4, 1},         {1, breatheIn, 0.25, 3, 1},  {4, hold, 1, 4, 1},
      {8, breatheOut, 1, 6, 1},        {11, breatheOut, 0.5, 3, 1}, {14, breatheIn, 0, 4, 2},
      {69, breatheOut, 1.0 / 6, 1, 5}, {70, done, 0, 0, 5},         {-1, breatheIn, 0, 4, 1}};
  for (const auto& [time, kind, fullness, left, round] : rows) {
    const auto step = breathingStep(Seconds(time));
    EXPECT_EQ(std::pair(step.kind, step.round), std::pair(kind, round)) << time;
    EXPECT_NEAR(step.fullness, fullness, 1e-9) << time;
    EXPECT_NEAR(step.left.count(), left, 1e-9) << time;
  }
}

TEST(TimerTexts, CountDownToTheEndAndUpFromTheStart) {
  using Row = std::pair<double, const char*>;
  for (const auto& [left, text] : {Row{1499.2, "25:00"}, Row{59, "0:59"}, Row{0.1, "0:01"}, Row{0, "0:00"},
                                   Row{-4, "0:00"}, Row{3599.5, "1:00:00"}})
    EXPECT_EQ(countdownText(Seconds(left)), text) << left;
  for (const auto& [elapsed, text] :
       {Row{0.9, "0:00"}, Row{59.9, "0:59"}, Row{3725, "1:02:05"}, Row{360000, "100:00:00"}})
    EXPECT_EQ(elapsedText(Seconds(elapsed)), text) << elapsed;
}

}  // namespace
}  // namespace ambrel
