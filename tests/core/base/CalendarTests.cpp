#include <gtest/gtest.h>

#include "core/base/Calendar.h"

namespace ambrel {
namespace {

using namespace std::chrono;

Instant utc(const char* text) { return parseISO8601(text).value(); }
std::string shown(Instant instant) { return iso8601(instant); }

struct LocalCase {
  const char *zone, *instant, *dayKey;
  int hour, minute;
  const char *startOfDay, *startOfHour;
};

TEST(Calendar, KnowsTheLocalDayAndHour) {
  const LocalCase cases[] = {
      {"UTC", "2026-11-21T23:59:59Z", "2026-11-21", 23, 59, "2026-11-21T00:00:00Z", "2026-11-21T23:00:00Z"},
      {"Europe/Berlin", "2026-11-21T23:30:00Z", "2026-11-22", 0, 30, "2026-11-21T23:00:00Z", "2026-11-21T23:00:00Z"},
      {"Asia/Kathmandu", "2026-11-21T18:14:59Z", "2026-11-21", 23, 59, "2026-11-20T18:15:00Z", "2026-11-21T17:15:00Z"},
      {"America/St_Johns", "2026-11-21T03:29:00Z", "2026-11-20", 23, 59, "2026-11-20T03:30:00Z",
       "2026-11-21T02:30:00Z"},
      {"Europe/Berlin", "1969-12-31T22:59:59.5Z", "1969-12-31", 23, 59, "1969-12-30T23:00:00Z", "1969-12-31T22:00:00Z"},
      // The clock goes from 01:59:59 to 03:00 and from 02:59:59 back to 02:00, an hour that comes twice.
      {"Europe/Berlin", "2026-03-29T01:15:00Z", "2026-03-29", 3, 15, "2026-03-28T23:00:00Z", "2026-03-29T01:00:00Z"},
      {"Europe/Berlin", "2026-10-25T00:15:00Z", "2026-10-25", 2, 15, "2026-10-24T22:00:00Z", "2026-10-25T00:00:00Z"},
      {"Europe/Berlin", "2026-10-25T01:15:00Z", "2026-10-25", 2, 15, "2026-10-24T22:00:00Z", "2026-10-25T01:00:00Z"},
      // Half an hour at 02:00: an hour of 30 minutes, and one of 90.
      {"Australia/Lord_Howe", "2026-10-03T15:40:00Z", "2026-10-04", 2, 40, "2026-10-03T13:30:00Z",
       "2026-10-03T15:30:00Z"},
      {"Australia/Lord_Howe", "2026-04-04T15:10:00Z", "2026-04-05", 1, 40, "2026-04-04T13:00:00Z",
       "2026-04-04T14:00:00Z"},
      // A day that begins at 01:00, and one whose last hour comes twice.
      {"America/Sao_Paulo", "2018-11-04T12:00:00Z", "2018-11-04", 10, 0, "2018-11-04T03:00:00Z",
       "2018-11-04T12:00:00Z"},
      {"America/Sao_Paulo", "2018-02-18T02:30:00Z", "2018-02-17", 23, 30, "2018-02-17T02:00:00Z",
       "2018-02-18T02:00:00Z"},
  };
  for (const LocalCase& each : cases) {
    SCOPED_TRACE(std::string(each.zone) + " " + each.instant);
    const Calendar calendar(each.zone, "en_US");
    const Instant instant = utc(each.instant);
    EXPECT_EQ(calendar.dayKey(instant), each.dayKey);
    EXPECT_EQ(calendar.fields(instant).hour, each.hour);
    EXPECT_EQ(calendar.fields(instant).minute, each.minute);
    EXPECT_EQ(shown(calendar.startOfDay(instant)), each.startOfDay);
    EXPECT_EQ(shown(calendar.startOfHour(instant)), each.startOfHour);
  }
}

TEST(Calendar, DaysAreAsLongAsTheyAre) {
  struct {
    const char *zone, *noon;
    hours length;
  } const cases[] = {
      {"Europe/Berlin", "2026-11-21T11:00:00Z", 24h},
      {"Europe/Berlin", "2026-03-29T10:00:00Z", 23h},
      {"America/Sao_Paulo", "2018-11-04T14:00:00Z", 23h},
      {"America/Sao_Paulo", "2018-02-17T14:00:00Z", 25h},
  };
  for (const auto& each : cases) {
    const Calendar calendar(each.zone, "");
    const Instant noon = utc(each.noon);
    EXPECT_EQ(calendar.startOfDay(noon, 1) - calendar.startOfDay(noon), each.length) << each.zone << each.noon;
  }
  // Samoa crossed the date line and had no 30th.
  const Calendar apia("Pacific/Apia", "");
  const Instant before = apia.instant(2011, 12, 29, 12);
  EXPECT_EQ(apia.dayKey(apia.startOfDay(before, 1)), "2011-12-31");
  EXPECT_EQ(apia.startOfDay(before, 1) - apia.startOfDay(before), 24h);
}

TEST(Calendar, ReadsALocalTimeThatIsSkippedOrComesTwice) {
  const Calendar berlin("Europe/Berlin", "");
  EXPECT_EQ(shown(berlin.instant(2026, 3, 29, 2, 30)), "2026-03-29T01:30:00Z");
  EXPECT_EQ(shown(berlin.instant(2026, 10, 25, 2, 30)), "2026-10-25T00:30:00Z");
  EXPECT_EQ(shown(berlin.instant(2026, 10, 25, 3)), "2026-10-25T02:00:00Z");
  EXPECT_EQ(shown(berlin.instant(2026, 1, 32)), "2026-01-31T23:00:00Z");
  EXPECT_EQ(shown(berlin.instant(2026, 14, 1)), "2027-01-31T23:00:00Z");
  EXPECT_EQ(shown(berlin.instant(2026, 3, 0)), "2026-02-27T23:00:00Z");
  EXPECT_EQ(shown(berlin.instant(2024, 2, 29)), "2024-02-28T23:00:00Z");
}

TEST(Calendar, KnowsWeekdaysAndTheirFirst) {
  const Calendar utcCalendar("UTC", "");
  const auto fields = utcCalendar.fields(utc("2024-12-31T00:00:00Z"));
  EXPECT_EQ(fields.weekday, 2);
  EXPECT_EQ(fields.dayOfYear, 366);
  EXPECT_EQ(utcCalendar.fields(utc("2026-11-22T12:00:00Z")).weekday, 7);
  const std::pair<const char*, int> cases[] = {{"en_US", 7},      {"de_DE.UTF-8", 1}, {"ar_EG", 6},
                                               {"pt_PT@euro", 7}, {"C", 7},           {"", 7}};
  for (const auto& [locale, first] : cases) EXPECT_EQ(Calendar("UTC", locale).firstWeekday(), first) << locale;
}

TEST(Calendar, TakesZoneAndLocaleFromTheVariables) {
  EXPECT_EQ(Calendar::fromVariables("Asia/Tokyo", "", "", "").zone(), "Asia/Tokyo");
  EXPECT_EQ(Calendar::fromVariables(":Europe/Paris", "", "", "").zone(), "Europe/Paris");
  EXPECT_EQ(Calendar::fromVariables("UTC", "fr_FR.UTF-8", "de_DE", "en_GB").locale(), "fr_FR");
  EXPECT_EQ(Calendar::fromVariables("UTC", "", "de_DE.UTF-8", "en_GB").locale(), "de_DE");
  EXPECT_EQ(Calendar::fromVariables("UTC", "", "", "en_GB").locale(), "en_GB");
  EXPECT_EQ(Calendar::fromVariables("UTC", "C.UTF-8", "", "").locale(), "en_US");
  // Nonsense keeps the program going.
  const Calendar unknown("Nowhere/Land", "xx_YY");
  EXPECT_EQ(unknown.offset(utc("2026-11-21T09:00:00Z")), 0s);
  EXPECT_FALSE(Calendar::fromVariables("", "", "", "").zone().empty());
}

}  // namespace
}  // namespace ambrel
