#include "core/time/Cities.h"
#include "core/time/Meeting.h"
#include "tests/Matchers.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

const City berlin{"Europe/Berlin", "Berlin"}, newYork{"America/New_York", "New York"}, tokyo{"Asia/Tokyo", "Tokyo"};
const Calendar own("Europe/Berlin", "en_US");

std::vector<std::string> namesFound(const CityIndex& index, std::string_view text) {
  std::vector<std::string> names;
  for (const auto& found : index.search(text, 8)) names.push_back(found.city.name);
  return names;
}

TEST(Cities, AreFoundByNameCountryAndZone) {
  const CityIndex english("en_US");
  EXPECT_EQ(namesFound(english, "toky").front(), "Tokyo");
  EXPECT_THAT(namesFound(english, "san f"), ElementsAre("San Francisco"));
  EXPECT_THAT(namesFound(english, "japan"), Contains("Tokyo"));
  EXPECT_EQ(namesFound(english, "utc").front(), "UTC");
  EXPECT_THAT(namesFound(english, " "), IsEmpty());
  EXPECT_EQ(namesFound(english, "a").size(), 8u);
  const CityIndex german("de_DE");
  EXPECT_EQ(namesFound(german, "toki").front(), "Tokio");
  EXPECT_THAT(namesFound(german, "sao paulo"), ElementsAre("São Paulo"));
}

TEST(Cities, AreStoredAsZonesWithTheUsersOwnNames) {
  EXPECT_EQ(cityOf("America/Los_Angeles San Francisco", "en_US"), (City{"America/Los_Angeles", "San Francisco"}));
  // Old and new spellings of a zone are both told by its city.
  EXPECT_EQ(cityOf("Asia/Calcutta", "en_US")->name, "Kolkata");
  EXPECT_EQ(cityOf("Asia/Kolkata", "en_US")->name, "Kolkata");
  EXPECT_EQ(cityOf("UTC", "en_US")->name, "UTC");
  EXPECT_FALSE(cityOf("Mars/Olympus", "en_US"));
  EXPECT_FALSE(cityOf("", "en_US"));
  for (const City& city : {tokyo, City{"America/Los_Angeles", "San Francisco"}})
    EXPECT_EQ(cityOf(storedForm(city, "en_US"), "en_US"), city);
  EXPECT_EQ(storedForm(tokyo, "en_US"), "Asia/Tokyo");
}

TEST(Cities, TellTheDifferenceOfTheMoment) {
  const Calendar there("America/New_York", "en_US"), kathmandu("Asia/Kathmandu", "en_US");
  EXPECT_EQ(cityTime(there, own, at("2026-11-22T03:00:00Z")), (CityTime{-1, std::chrono::hours(-6), true}));
  // For a week in autumn the clocks of the one have been put back already.
  EXPECT_EQ(cityTime(there, own, at("2026-10-28T12:00:00Z")).ahead, std::chrono::hours(-5));
  EXPECT_EQ(cityTime(kathmandu, own, at("2026-11-22T18:30:00Z")), (CityTime{1, std::chrono::minutes(285), true}));
}

TEST(Meetings, AreWhenMostAreAtWork) {
  const Date monday{2026, 11, 23};
  const MeetingDay two = meetingDay({berlin, newYork}, {}, own, monday);
  ASSERT_TRUE(two.isForAll());
  EXPECT_EQ(iso8601(two.at(two.best->from)), "2026-11-23T14:00:00Z");
  EXPECT_EQ(iso8601(two.at(two.best->to)), "2026-11-23T16:00:00Z");
  const MeetingDay three = meetingDay({berlin, newYork, tokyo}, {}, own, monday);
  EXPECT_FALSE(three.isForAll());
  EXPECT_EQ(three.best->places, 2);
  EXPECT_FALSE(meetingDay({tokyo, newYork}, {}, own, monday).best) << "they are never at work together";
  EXPECT_EQ(meetingDay({berlin}, {}, own, {2026, 10, 25}).quarters, 100) << "a day of 25 hours";
}

TEST(Meetings, TakeTheNextDayThatHasTimeLeft) {
  // On a Friday evening, and on the day off of one of them.
  EXPECT_EQ(nextMeetingDay({berlin, newYork}, {}, own, at("2026-11-20T16:00:00Z")).begins, at("2026-11-22T23:00:00Z"));
  EXPECT_EQ(nextMeetingDay({berlin, newYork}, {}, own, at("2026-11-20T15:59:00Z")).begins, at("2026-11-19T23:00:00Z"));
  EXPECT_EQ(nextMeetingDay({berlin, newYork, tokyo}, {}, own, at("2026-11-21T12:00:00Z")).begins,
            at("2026-11-22T23:00:00Z"))
      << "two of them are better than nobody on a Saturday";
  const City riyadh{"Asia/Riyadh", "Riyadh"};
  EXPECT_EQ(nextMeetingDay({berlin, riyadh}, {}, own, at("2026-11-20T06:00:00Z")).begins, at("2026-11-22T23:00:00Z"));
}

}  // namespace
}  // namespace ambrel
