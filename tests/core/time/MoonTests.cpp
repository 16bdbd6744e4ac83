#include <gtest/gtest.h>

#include "core/time/Moon.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

using enum MoonQuarter;

// As published in almanacs, to the minute.
constexpr std::pair<const char*, MoonQuarter> published[] = {
    {"1977-02-18T03:37:00Z", newMoon},      {"1999-08-11T11:08:00Z", newMoon},
    {"2000-01-06T18:14:00Z", newMoon},      {"2017-08-21T18:30:00Z", newMoon},
    {"2024-04-08T18:21:00Z", newMoon},      {"2026-01-03T10:03:00Z", fullMoon},
    {"2026-01-10T15:48:00Z", lastQuarter},  {"2026-01-18T19:52:00Z", newMoon},
    {"2026-01-26T04:47:00Z", firstQuarter}, {"2026-02-01T22:09:00Z", fullMoon},
    {"2026-02-09T12:43:00Z", lastQuarter},  {"2026-02-17T12:01:00Z", newMoon},
    {"2026-02-24T12:28:00Z", firstQuarter}, {"2026-03-03T11:38:00Z", fullMoon},
    {"2026-03-11T09:38:00Z", lastQuarter},  {"2026-03-19T01:23:00Z", newMoon},
    {"2026-03-25T19:18:00Z", firstQuarter}, {"2026-04-02T02:12:00Z", fullMoon},
    {"2026-04-10T04:52:00Z", lastQuarter},  {"2026-04-17T11:52:00Z", newMoon},
    {"2026-04-24T02:32:00Z", firstQuarter}, {"2026-05-01T17:23:00Z", fullMoon},
    {"2026-05-09T21:10:00Z", lastQuarter},  {"2026-05-16T20:01:00Z", newMoon},
    {"2026-05-23T11:11:00Z", firstQuarter}, {"2026-05-31T08:45:00Z", fullMoon},
    {"2026-06-08T10:00:00Z", lastQuarter},  {"2026-06-15T02:54:00Z", newMoon},
    {"2026-06-21T21:55:00Z", firstQuarter}, {"2026-06-29T23:57:00Z", fullMoon},
    {"2026-07-07T19:29:00Z", lastQuarter},  {"2026-07-14T09:43:00Z", newMoon},
    {"2026-07-21T11:06:00Z", firstQuarter}, {"2026-07-29T14:36:00Z", fullMoon},
    {"2026-08-06T02:21:00Z", lastQuarter},  {"2026-08-12T17:37:00Z", newMoon},
    {"2026-08-20T02:46:00Z", firstQuarter}, {"2026-08-28T04:18:00Z", fullMoon},
    {"2026-09-04T07:51:00Z", lastQuarter},  {"2026-09-11T03:27:00Z", newMoon},
    {"2026-09-18T20:44:00Z", firstQuarter}, {"2026-09-26T16:49:00Z", fullMoon},
    {"2026-10-03T13:25:00Z", lastQuarter},  {"2026-10-10T15:50:00Z", newMoon},
    {"2026-10-18T16:13:00Z", firstQuarter}, {"2026-10-26T04:12:00Z", fullMoon},
    {"2026-11-01T20:28:00Z", lastQuarter},  {"2026-11-09T07:02:00Z", newMoon},
    {"2026-11-17T11:48:00Z", firstQuarter}, {"2026-11-24T14:53:00Z", fullMoon},
    {"2026-12-01T06:09:00Z", lastQuarter},  {"2026-12-09T00:52:00Z", newMoon},
    {"2026-12-17T05:43:00Z", firstQuarter}, {"2026-12-24T01:28:00Z", fullMoon},
};

TEST(Moon, QuartersAreWithinThreeMinutesOfThePublishedOnes) {
  for (const auto& [text, quarter] : published) {
    // From three days before it, it is the next one.
    const MoonEvent found = nextMoonEvents(at(text) - std::chrono::days(3), 1).front();
    EXPECT_EQ(found.quarter, quarter) << text;
    EXPECT_LE(std::abs(secondsBetween(at(text), found.at).count()), 180) << text << ' ' << iso8601(found.at);
  }
}

TEST(Moon, IsLitByHalfAtItsQuarters) {
  for (const auto& [text, quarter] : published)
    EXPECT_NEAR(moonIllumination(at(text)), quarter == newMoon ? 0 : quarter == fullMoon ? 1 : 0.5, 0.01) << text;
}

TEST(Moon, AQuarterNamesItsWholeLocalDay) {
  const Calendar berlin("Europe/Berlin", "en_US"), auckland("Pacific/Auckland", "en_US");
  EXPECT_EQ(moonName(berlin, at("2026-11-24T00:00:00Z")), "Full Moon");
  EXPECT_EQ(moonName(berlin, at("2026-11-24T22:59:00Z")), "Full Moon");
  EXPECT_EQ(moonName(berlin, at("2026-11-24T23:00:00Z")), "Waning Gibbous");
  // There it is the 25th already.
  EXPECT_EQ(moonName(auckland, at("2026-11-24T10:00:00Z")), "Waxing Gibbous");
  EXPECT_EQ(moonName(auckland, at("2026-11-24T11:00:00Z")), "Full Moon");
  EXPECT_EQ(moonName(berlin, at("2026-11-12T12:00:00Z")), "Waxing Crescent");
  EXPECT_EQ(moonName(berlin, at("2026-12-05T12:00:00Z")), "Waning Crescent");
}

}  // namespace
}  // namespace ambrel
