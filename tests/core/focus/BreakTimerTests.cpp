#include <gtest/gtest.h>

#include "core/focus/BreakTimer.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

const Calendar utc("UTC", "en_US");
const Instant noon = at("2026-11-21T12:00:00Z");

BreakTimer eyes() {
  BreakTimer timer;
  timer.nextDue = noon + minutes(20);
  return timer;
}

BreakTimer stand() {
  BreakTimer timer;
  timer.kind = BreakKind::stand;
  timer.intervalMinutes = 45;
  timer.nextDue = noon + minutes(45);
  return timer;
}

TEST(BreakTimer, ComesDueOnceAndLapsesUnanswered) {
  BreakTimer timer = eyes();
  EXPECT_FALSE(timer.tick(noon + minutes(20) - seconds(1), utc, true));
  EXPECT_TRUE(timer.tick(noon + minutes(20), utc, true));
  EXPECT_TRUE(timer.isDue);
  EXPECT_FALSE(timer.tick(noon + minutes(21), utc, true)) << "it has been said";
  EXPECT_EQ(timer.nextChange(), noon + minutes(25));
  EXPECT_FALSE(timer.tick(noon + minutes(25), utc, true));
  EXPECT_FALSE(timer.isDue);
  EXPECT_EQ(timer.nextDue, noon + minutes(45));
  EXPECT_EQ(timer.taken.count, 0);
}

TEST(BreakTimer, CountsAnEyeBreakWhenItIsOver) {
  BreakTimer timer = eyes();
  ASSERT_TRUE(timer.tick(noon + minutes(20), utc, true));
  timer.takeBreak(noon + minutes(21), utc);
  EXPECT_FALSE(timer.isDue);
  EXPECT_EQ(timer.breakEnds, noon + minutes(21) + seconds(20));
  EXPECT_EQ(timer.taken.count, 0);
  EXPECT_FALSE(timer.tick(noon + minutes(21) + seconds(20), utc, true));
  EXPECT_EQ(timer.breakEnds, std::nullopt);
  EXPECT_EQ(timer.taken, (DayCount{1, "2026-11-21"}));
  EXPECT_EQ(timer.nextDue, noon + minutes(41) + seconds(20));

  timer.takeBreak(noon + minutes(30), utc);
  timer.endBreak(noon + minutes(30) + seconds(5));
  EXPECT_EQ(timer.nextChange(), noon + minutes(50) + seconds(5));
  EXPECT_EQ(timer.taken.count, 1) << "five seconds are no break";
}

TEST(BreakTimer, CountsStandingUpAtOnceAndByTheDay) {
  BreakTimer timer = stand();
  timer.takeBreak(noon, utc);
  timer.takeBreak(noon, utc);
  EXPECT_EQ(timer.taken, (DayCount{2, "2026-11-21"}));
  EXPECT_EQ(timer.breakEnds, std::nullopt);
  EXPECT_EQ(timer.nextDue, noon + minutes(45));
  timer.takeBreak(noon + hours(24), utc);
  EXPECT_EQ(timer.taken, (DayCount{1, "2026-11-22"}));
}

TEST(BreakTimer, IsSilentWhileOffOrUnwanted) {
  BreakTimer timer = eyes();
  EXPECT_FALSE(timer.tick(noon + minutes(20), utc, false));
  EXPECT_FALSE(timer.isDue);
  EXPECT_EQ(timer.nextDue, noon + minutes(40)) << "the next chance comes an interval later, not the next second";
  timer.turn(false, noon);
  EXPECT_EQ(timer.nextChange(), std::nullopt);
  EXPECT_FALSE(timer.tick(noon + hours(5), utc, true));
  timer.turn(true, noon + hours(5));
  EXPECT_EQ(timer.nextDue, noon + hours(5) + minutes(20));
  timer.setInterval(0, noon);
  EXPECT_EQ(timer.intervalMinutes, 1);
  timer.setInterval(30, noon);
  EXPECT_EQ(timer.nextDue, noon + minutes(30));
}

TEST(BreakTimer, TakesSleepForRest) {
  struct Row {
    BreakTimer timer;
    Seconds slept;
    bool beginsAgain;
  };
  for (const Row& row :
       {Row{eyes(), Seconds(19), false}, Row{eyes(), Seconds(20), true}, Row{stand(), Seconds(59), false},
        Row{stand(), Seconds(60), true}, Row{eyes(), Seconds(1e6), true}}) {
    BreakTimer timer = row.timer;
    const Instant woken = noon + minutes(50);
    timer.slept(row.slept, woken);
    EXPECT_EQ(timer.tick(woken, utc, true), !row.beginsAgain) << nameOf(timer.kind) << row.slept.count();
  }
  // A due reminder is answered by it as well, and a break that ran out meanwhile counts.
  BreakTimer timer = eyes();
  ASSERT_TRUE(timer.tick(noon + minutes(20), utc, true));
  timer.slept(hours(8), noon + hours(9));
  EXPECT_FALSE(timer.isDue);
  timer.takeBreak(noon + hours(9), utc);
  timer.slept(hours(8), noon + hours(17));
  EXPECT_FALSE(timer.tick(noon + hours(17), utc, true));
  EXPECT_EQ(timer.taken.count, 1);
  EXPECT_EQ(timer.nextDue, noon + hours(17) + minutes(20));
  timer.clockMoved(-hours(1));
  EXPECT_EQ(timer.nextDue, noon + hours(16) + minutes(20));
}

}  // namespace
}  // namespace ambrel
