#include <gtest/gtest.h>

#include "core/focus/Alarm.h"
#include "core/focus/BreakTimer.h"
#include "core/focus/Water.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

using Event = Alarm::Event;

const Calendar berlin("Europe/Berlin", "en_US");

Alarm alarm(int hour, int minute, Instant from) {
  Alarm alarm;
  alarm.set(hour, minute, from);
  alarm.turn(true, from);
  return alarm;
}

TEST(Alarm, RingsAtTheNextTimeOfTheDay) {
  const std::tuple<const char*, int, int, const char*, const char*> rows[] = {
      {"later today", 7, 30, "2026-11-21T05:00:00Z", "2026-11-21T06:30:00Z"},
      {"set in the minute itself it is for tomorrow", 7, 30, "2026-11-21T06:30:00Z", "2026-11-22T06:30:00Z"},
      {"tomorrow", 7, 30, "2026-11-21T08:00:00Z", "2026-11-22T06:30:00Z"},
      {"over the change to winter time", 7, 30, "2026-10-24T20:00:00Z", "2026-10-25T06:30:00Z"},
      {"a time that occurs twice, the first", 2, 30, "2026-10-24T20:00:00Z", "2026-10-25T00:30:00Z"},
      {"and not the second", 2, 30, "2026-10-25T00:30:00Z", "2026-10-26T01:30:00Z"},
      {"a time that does not occur", 2, 30, "2026-03-28T20:00:00Z", "2026-03-29T01:30:00Z"},
  };
  for (const auto& [what, hour, minute, from, ring] : rows)
    EXPECT_EQ(alarm(hour, minute, at(from)).nextRing(berlin), at(ring)) << what;
  Alarm off = alarm(7, 30, at("2026-11-21T05:00:00Z"));
  off.turn(false, at("2026-11-21T05:00:00Z"));
  EXPECT_EQ(off.nextRing(berlin), std::nullopt);
  EXPECT_EQ(off.tick(at("2026-11-22T06:30:00Z"), berlin, true), Event::none);
}

TEST(Alarm, RingsForFiveMinutesAndAgainTomorrow) {
  const Instant ring = at("2026-11-21T06:30:00Z");
  Alarm a = alarm(7, 30, ring - hours(2));
  EXPECT_EQ(a.tick(ring - seconds(1), berlin, true), Event::none);
  EXPECT_EQ(a.tick(ring, berlin, true), Event::rings);
  EXPECT_TRUE(a.isRinging);
  EXPECT_EQ(a.nextChange(berlin), ring + minutes(5));
  EXPECT_EQ(a.tick(ring + minutes(4), berlin, true), Event::none);
  EXPECT_EQ(a.tick(ring + minutes(5), berlin, true), Event::silenced);
  EXPECT_FALSE(a.isRinging);
  EXPECT_EQ(a.nextRing(berlin), ring + hours(24));
  EXPECT_EQ(a.tick(ring + minutes(6), berlin, true), Event::none);
  EXPECT_TRUE(a.isOn);
}

TEST(Alarm, SnoozesAsOftenAsAsked) {
  const Instant ring = at("2026-11-21T06:30:00Z");
  Alarm a = alarm(7, 30, ring - hours(2));
  a.snooze(ring - hours(1));
  EXPECT_EQ(a.snoozedUntil, std::nullopt) << "there is nothing to put off";
  Instant now = ring;
  for (int times = 0; times < 3; ++times) {
    ASSERT_EQ(a.tick(now, berlin, true), Event::rings);
    a.snooze(now + seconds(30));
    EXPECT_FALSE(a.isRinging);
    EXPECT_EQ(a.nextRing(berlin), now + seconds(30) + minutes(10));
    now += seconds(30) + minutes(10);
  }
  a.stop();
  EXPECT_EQ(a.nextRing(berlin), ring + hours(24));
}

TEST(Alarm, IsMissedWhenTheMachineSleptThroughItAndPassedOverWhileUnwanted) {
  const Instant ring = at("2026-11-21T06:30:00Z");
  for (const auto& [late, event] :
       {std::pair{minutes(4), Event::rings}, {minutes(5), Event::missed}, {minutes(60 * 100), Event::missed}}) {
    Alarm a = alarm(7, 30, ring - hours(2));
    EXPECT_EQ(a.tick(ring + late, berlin, true), event) << late.count();
    const Instant next = event == Event::rings ? ring + minutes(5) : *alarm(7, 30, ring + late).nextRing(berlin);
    EXPECT_EQ(a.nextChange(berlin), next) << "a late ring ends with the five minutes";
  }
  Alarm unwanted = alarm(7, 30, ring - hours(2));
  EXPECT_EQ(unwanted.tick(ring, berlin, false), Event::none);
  EXPECT_FALSE(unwanted.isRinging);
  EXPECT_EQ(unwanted.nextRing(berlin), ring + hours(24));
  EXPECT_EQ(alarm(7, 30, ring).notice(true, berlin).title, "Missed alarm");
  EXPECT_EQ(alarm(7, 30, ring).notice(false, berlin).body, "It is set for 7:30\u202fAM.");
}

TEST(Alarm, IsNotMissedWhenOnlyAnotherZoneHasPassedItsTime) {
  Alarm a = alarm(7, 30, at("2026-11-21T05:00:00Z"));
  const Calendar tokyo("Asia/Tokyo", "en_US");
  const Instant now = at("2026-11-21T06:00:00Z");
  a.zoneChanged(now);
  EXPECT_EQ(a.tick(now, tokyo, true), Event::none);
  EXPECT_EQ(a.nextRing(tokyo), at("2026-11-21T22:30:00Z"));
}

TEST(Alarm, ForgetsAFutureThatAClockSetBackHasTaken) {
  Alarm a = alarm(7, 30, at("2030-01-01T00:00:00Z"));
  const Instant now = at("2026-11-21T05:00:00Z");
  EXPECT_EQ(a.tick(now, berlin, true), Event::none);
  EXPECT_EQ(a.nextRing(berlin), at("2026-11-21T06:30:00Z"));
  a.set(99, -1, now);
  EXPECT_EQ(std::pair(a.hour, a.minute), std::pair(23, 0));
}

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

TEST(Water, CountsGlassesByTheDay) {
  Water water;
  water.add(noon, utc);
  water.add(noon, utc);
  EXPECT_EQ(water.glasses, (DayCount{2, "2026-11-21"}));
  water.remove(noon, utc);
  water.remove(noon, utc);
  water.remove(noon, utc);
  EXPECT_EQ(water.glasses.count, 0) << "never below none";
  water.add(noon, utc);
  EXPECT_EQ(water.glasses.today("2026-11-22"), 0);
  water.add(noon + hours(24), utc);
  EXPECT_EQ(water.glasses, (DayCount{1, "2026-11-22"}));
}

TEST(Water, RemindsOnceAnIntervalAfterTheLastGlass) {
  Water water;
  water.settle(noon, utc);
  EXPECT_EQ(water.reminder, std::nullopt) << "nobody has used it yet";
  water.add(noon, utc);
  EXPECT_EQ(water.reminder, noon + minutes(30));
  EXPECT_FALSE(water.tick(noon + minutes(30) - seconds(1), true));
  EXPECT_TRUE(water.tick(noon + minutes(30), true));
  EXPECT_EQ(water.reminder, std::nullopt) << "it comes once, until something changes";
  EXPECT_EQ(water.dueAt(noon + minutes(300), utc), noon + minutes(30)) << "it is due since then";

  for (const auto& [since, reminds] :
       {std::pair{minutes(29), minutes(30)}, {minutes(30), minutes(31)}, {minutes(300), minutes(301)}}) {
    water.settle(noon + since, utc);
    EXPECT_EQ(water.reminder, noon + reminds) << "at least a minute ahead";
  }
  Water unwanted;
  unwanted.add(noon, utc);
  EXPECT_FALSE(unwanted.tick(noon + minutes(30), false));
  EXPECT_EQ(unwanted.reminder, noon + minutes(60)) << "passed over for an interval";
  unwanted.clockMoved(-minutes(60));
  EXPECT_EQ(unwanted.reminder, noon);
  EXPECT_EQ(unwanted.dueAt(noon - minutes(60), utc), noon - minutes(30));
  water.remindersOn = false;
  water.settle(noon, utc);
  EXPECT_EQ(water.reminder, std::nullopt);
  EXPECT_EQ(water.dueAt(noon, utc), std::nullopt);
}

TEST(Water, IsSilentOnceTheGoalIsMetUntilTheNextMorning) {
  Water water;
  water.goal = 2;
  water.add(noon, utc);
  EXPECT_FALSE(water.isGoalMet(noon, utc));
  water.add(noon, utc);
  EXPECT_TRUE(water.isGoalMet(noon, utc));
  EXPECT_EQ(water.dueAt(noon, utc), std::nullopt);
  const Instant morning = at("2026-11-22T08:00:00Z");
  EXPECT_EQ(water.reminder, morning);
  EXPECT_EQ(water.dueAt(at("2026-11-22T00:00:00Z"), utc), morning);
  EXPECT_TRUE(water.tick(morning, true));
  EXPECT_EQ(water.dueAt(at("2026-11-25T00:00:00Z"), utc), morning) << "once, not each day";
  // The program was not running in the morning.
  water.settle(morning + minutes(5), utc);
  EXPECT_EQ(water.reminder, morning + minutes(6));
}

TEST(Water, SaysHowMuchIsDrunk) {
  Water water;
  water.glasses = {3, "2026-11-21"};
  EXPECT_EQ(water.notice(noon, utc), (FocusNotice{"water", "Time for some water", "3 of 8 glasses today."}));
  EXPECT_EQ(water.notice(noon + hours(24), utc).body, "0 of 8 glasses today.");
}

}  // namespace
}  // namespace ambrel
