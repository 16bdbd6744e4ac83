#include <gtest/gtest.h>

#include "core/focus/Timers.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

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
