#include <gtest/gtest.h>

#include "core/focus/Alarm.h"
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

}  // namespace
}  // namespace ambrel
