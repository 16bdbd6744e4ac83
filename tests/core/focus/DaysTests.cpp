#include <gmock/gmock.h>

#include "core/base/JSON.h"
#include "core/focus/Days.h"
#include "core/focus/HabitList.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

TEST(FocusStats, ShowTheWeekAsTheLocaleBeginsIt) {
  const std::tuple<const char*, const char*, const char*, const char*, const char*> rows[] = {
      {"de_DE", "Europe/Berlin", "2026-11-21T12:00:00Z", "2026-11-16", "2026-11-22"},     // a Saturday; from Monday
      {"en_US", "Europe/Berlin", "2026-11-21T12:00:00Z", "2026-11-15", "2026-11-21"},     // from Sunday
      {"ar_EG", "Africa/Cairo", "2026-11-20T12:00:00Z", "2026-11-14", "2026-11-20"},      // from Saturday
      {"en_US", "America/New_York", "2026-11-22T04:59:59Z", "2026-11-15", "2026-11-21"},  // still Saturday there
      {"en_US", "America/New_York", "2026-11-22T05:00:00Z", "2026-11-22", "2026-11-28"},
      {"de_DE", "Europe/Berlin", "2026-03-29T12:00:00Z", "2026-03-23", "2026-03-29"},  // 23 hours on the last day
      {"de_DE", "Europe/Berlin", "2026-10-31T23:30:00Z", "2026-10-26", "2026-11-01"},  // the day after one of 25
      {"de_DE", "Europe/Berlin", "2026-12-31T12:00:00Z", "2026-12-28", "2027-01-03"},
  };
  for (const auto& [locale, zone, date, firstDay, lastDay] : rows) {
    SCOPED_TRACE(std::string(locale) + " " + date);
    const Calendar calendar(zone, locale);
    const auto week = FocusStats::week({{firstDay, 3}, {lastDay, 5}, {"2026-11-13", 9}}, at(date), calendar);
    EXPECT_EQ(calendar.dayKey(week.front().date), firstDay);
    EXPECT_EQ(calendar.dayKey(week.back().date), lastDay);
    EXPECT_EQ(week.front().count, 3);
    EXPECT_EQ(week.back().count, 5);
    EXPECT_EQ(FocusStats::total(week), 8);
  }
}

TEST(Streak, WalksBackByTheCalendar) {
  const std::tuple<const char*, const char*, const char*, std::set<std::string>, int> rows[] = {
      {"nothing", "UTC", "2026-11-21T12:00:00Z", {}, 0},
      {"today alone", "UTC", "2026-11-21T12:00:00Z", {"2026-11-21"}, 1},
      {"today is not over", "UTC", "2026-11-21T12:00:00Z", {"2026-11-20", "2026-11-19"}, 2},
      {"yesterday is", "UTC", "2026-11-21T12:00:00Z", {"2026-11-19", "2026-11-18"}, 0},
      {"a gap ends it", "UTC", "2026-11-21T12:00:00Z", {"2026-11-21", "2026-11-20", "2026-11-18"}, 2},
      {"over a month and a year", "UTC", "2027-01-01T00:00:00Z", {"2027-01-01", "2026-12-31", "2026-12-30"}, 3},
      // 86400 seconds before 00:30 on the day after the clocks went back is still that day.
      {"a day of 25 hours", "Europe/Berlin", "2026-10-25T23:30:00Z", {"2026-10-26", "2026-10-25", "2026-10-24"}, 3},
      // And 86400 seconds before 00:30 on the day after they went forward is two days earlier.
      {"a day of 23 hours", "Europe/Berlin", "2026-03-29T22:30:00Z", {"2026-03-30", "2026-03-29", "2026-03-28"}, 3},
      {"a date that was left out",
       "Pacific/Apia",
       "2011-12-31T09:00:00Z",
       {"2011-12-31", "2011-12-29", "2011-12-28"},
       3},
  };
  for (const auto& [what, zone, now, days, length] : rows)
    EXPECT_EQ(Streak::length(days, at(now), Calendar(zone, "en_US")), length) << what;
}

TEST(DayLogs, KeepWhatIsNewest) {
  const Calendar utc("UTC", "en_US");
  const DayCounts few{{"1999-01-01", 1}, {"2026-11-21", 4}, {"2036-11-22", 5}};
  EXPECT_EQ(newestDays(few), few);
  DayCounts many;
  for (int i = 0; i < 400; ++i) many[utc.dayKey(utc.startOfDay(at("2026-11-21T12:00:00Z"), -i))] = 1;
  const DayCounts kept = newestDays(many);
  EXPECT_EQ(kept.size(), 367u);
  EXPECT_EQ(kept.begin()->first, "2025-11-20");
  EXPECT_EQ(kept.rbegin()->first, "2026-11-21");
  const auto keys = lastSevenDays(at("2026-03-02T00:30:00Z"), Calendar("America/New_York", "en_US"));
  EXPECT_EQ(keys.front(), "2026-02-23");
  EXPECT_EQ(keys.back(), "2026-03-01");
}

const UUID id = *UUID::parse("6F9619FF-8B86-D011-B42D-00C04FC964FF");

TEST(Habits, AreAddedUpToTheLimit) {
  std::vector<Habit> habits;
  EXPECT_EQ(addingHabit(habits, " \t", id), std::nullopt);
  habits = *addingHabit(habits, "  Read  ", id);
  EXPECT_EQ(habits, (std::vector<Habit>{{id, "Read", {}}}));
  while (habits.size() < mostHabits) habits = *addingHabit(habits, "More", UUID::random());
  EXPECT_EQ(addingHabit(habits, "Too many", id), std::nullopt);
}

TEST(Habits, AreReadBackAndOneBadEntryCostsNoOther) {
  const HabitList habits{{{id, "Read", {"2026-11-20", "2026-11-21"}}, {UUID::random(), "Läuft \"gut\"", {}}}};
  EXPECT_EQ(JSON(habits).get<HabitList>(), habits);

  const auto json = parseJSON(R"([{"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","name":"Read","days":["2026-11-21",7]},
    {"id":"nobody","name":"X"}, {"name":"no id"}, {"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF"}, null, 3, "text"])");
  ASSERT_TRUE(json);
  EXPECT_EQ(json->get<HabitList>(), (HabitList{{{id, "Read", {"2026-11-21"}}}}));
  EXPECT_THROW(JSON::object().get<HabitList>(), DecodingError);
}

}  // namespace
}  // namespace ambrel
