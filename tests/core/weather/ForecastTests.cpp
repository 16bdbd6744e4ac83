#include <gmock/gmock.h>

#include "core/base/JSON.h"
#include "tests/core/weather/Samples.h"

namespace ambrel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

TEST(Forecast, PublishesWhatTheServiceAnswered) {
  const Forecast f = forecastOf("london.json");
  EXPECT_EQ(f.temperature, 21.8);
  EXPECT_EQ(f.code, 2);
  EXPECT_EQ(f.high, 25.0);
  EXPECT_EQ(f.low, 14.0);
  EXPECT_EQ(f.windSpeed, 14.2);
  EXPECT_EQ(f.windDirection, 228.0);
  EXPECT_EQ(f.apparentTemperature, 19.4);
  EXPECT_EQ(f.humidity, 64.0);
  EXPECT_EQ(f.dewPoint, 14.7);
  EXPECT_EQ(f.uvIndex, 4.35);
  EXPECT_EQ(f.uvMax, 6.9);
  EXPECT_EQ(f.timeZone, "GMT+01:00");
  // Times of the answer are the place's own, an hour ahead of Greenwich.
  EXPECT_EQ(f.sunrise, at("2026-07-14T03:58:00Z"));
  EXPECT_EQ(f.sunset, at("2026-07-14T20:12:00Z"));
  ASSERT_EQ(f.hourly.size(), 7u);
  EXPECT_EQ(f.hourly[3], (WeatherHour{at("2026-07-14T12:00:00Z"), 24.3, 61}));
  ASSERT_EQ(f.daily.size(), 7u);
  EXPECT_EQ(f.daily[1], (WeatherDay{at("2026-07-15T11:00:00Z"), 25.2, 14.2, 61, 6.75}));
  ASSERT_EQ(f.rainSlots.size(), 9u);
  EXPECT_EQ(f.rainSlots[4], (RainSoon::Slot{at("2026-07-14T10:30:00Z"), 0.63}));
  ASSERT_EQ(f.rainChances.size(), 7u);
  EXPECT_EQ(f.rainChances[2], (RainSoon::Chance{at("2026-07-14T11:00:00Z"), 55}));
}

TEST(Forecast, ReadsTimesWithTheOffsetOfThePlace) {
  struct Row {
    const char* file;
    const char* zone;
    const char* firstHour;
    const char* firstNoon;
  };
  const Row rows[] = {
      {"kathmandu.json", "GMT+05:45", "2026-11-21T12:15:00Z", "2026-11-21T06:15:00Z"},
      {"kiritimati.json", "GMT+14:00", "2026-11-21T10:00:00Z", "2026-11-21T22:00:00Z"},
      {"pago-pago.json", "GMT-11:00", "2026-11-21T10:00:00Z", "2026-11-20T23:00:00Z"},
      {"polar-night.json", "GMT+01:00", "2026-12-21T11:00:00Z", "2026-12-21T11:00:00Z"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.file);
    const Forecast f = forecastOf(row.file);
    EXPECT_EQ(f.timeZone, row.zone);
    ASSERT_FALSE(f.hourly.empty());
    EXPECT_EQ(f.hourly.front().date, at(row.firstHour));
    ASSERT_FALSE(f.daily.empty());
    EXPECT_EQ(f.daily.front().date, at(row.firstNoon));
    // The zone is one that the calendar knows: noon of a day is noon there.
    EXPECT_EQ(placeCalendar(f, Calendar("UTC", "")).fields(f.daily.front().date).hour, 12);
  }
}

TEST(Forecast, TakesNullForAGapAndNeverForZero) {
  const Forecast f = forecastOf("gaps.json");
  EXPECT_EQ(f.windDirection, std::nullopt);
  EXPECT_EQ(f.uvIndex, std::nullopt);
  EXPECT_EQ(f.dewPoint, std::nullopt);
  EXPECT_EQ(f.windSpeed, 14.2);
  EXPECT_EQ(f.high, std::nullopt) << "the first high is unknown; the second is another day's";
  EXPECT_EQ(f.low, 14.0);
  EXPECT_EQ(f.sunrise, std::nullopt);
  EXPECT_EQ(f.uvMax, std::nullopt);

  std::vector<Instant> hours, days, slots, chances;
  for (const auto& hour : f.hourly) hours.push_back(hour.date);
  for (const auto& day : f.daily) days.push_back(day.date);
  for (const auto& slot : f.rainSlots) slots.push_back(slot.start);
  for (const auto& chance : f.rainChances) chances.push_back(chance.start);
  EXPECT_EQ(hours, (std::vector{at("2026-07-14T09:00:00Z"), at("2026-07-14T13:00:00Z"), at("2026-07-14T14:00:00Z"),
                                at("2026-07-14T15:00:00Z")}));
  EXPECT_EQ(days, (std::vector{at("2026-07-17T11:00:00Z"), at("2026-07-18T11:00:00Z"), at("2026-07-19T11:00:00Z"),
                               at("2026-07-20T11:00:00Z")}));
  EXPECT_EQ(slots.front(), at("2026-07-14T09:45:00Z"));
  EXPECT_EQ(slots.size(), 7u);
  EXPECT_EQ(chances.front(), at("2026-07-14T10:00:00Z"));
  EXPECT_EQ(chances.size(), 5u);
}

TEST(Forecast, NeedsNoOptionalField) {
  const Forecast f = forecastOf("minimal.json");
  Forecast expected;
  expected.temperature = 7;
  expected.code = 3;
  expected.timeZone = "GMT";
  EXPECT_EQ(f, expected);
}

// Each of these fields decides: without it, or with another type in its place, nothing is taken.
TEST(Forecast, IsRejectedWholeWithoutARequiredField) {
  const JSON whole = *parseJSON(sample("london.json"));
  const char* const pointers[] = {"/utc_offset_seconds",
                                  "/current",
                                  "/current/temperature_2m",
                                  "/current/weather_code",
                                  "/hourly",
                                  "/hourly/time",
                                  "/hourly/temperature_2m",
                                  "/hourly/weather_code",
                                  "/daily",
                                  "/daily/temperature_2m_max",
                                  "/daily/temperature_2m_min",
                                  "/daily/sunrise",
                                  "/daily/sunset",
                                  "/minutely_15/time",
                                  "/minutely_15/precipitation"};
  for (const char* text : pointers) {
    const JSON::json_pointer pointer(text);
    const std::string key = pointer.back();
    JSON missing = whole;
    missing[pointer.parent_pointer()].erase(key);
    JSON null = whole;
    null[pointer] = nullptr;
    JSON otherType = whole;
    otherType[pointer] = "warm";
    for (const JSON& broken : {missing, null, otherType}) {
      SCOPED_TRACE(std::string(text) + " is " + (broken.contains(pointer) ? broken[pointer].dump() : "missing"));
      const auto decoded = decodeForecast(compactJSON(broken));
      EXPECT_FALSE(decoded.value);
      EXPECT_THAT(decoded.problem, HasSubstr(key));
    }
  }
}

TEST(Forecast, PassesOverAnOptionalFieldOfAnotherType) {
  const JSON whole = *parseJSON(sample("london.json"));
  const char* const pointers[] = {"/current/wind_speed_10m",
                                  "/current/wind_direction_10m",
                                  "/current/apparent_temperature",
                                  "/current/relative_humidity_2m",
                                  "/current/dew_point_2m",
                                  "/current/uv_index",
                                  "/daily/uv_index_max",
                                  "/hourly/precipitation_probability",
                                  "/daily/time",
                                  "/daily/weather_code",
                                  "/minutely_15"};
  for (const char* text : pointers) {
    SCOPED_TRACE(text);
    JSON changed = whole;
    changed[JSON::json_pointer(text)] = "fog";
    const auto decoded = decodeForecast(compactJSON(changed));
    ASSERT_TRUE(decoded.value) << decoded.problem;
    EXPECT_EQ(decoded.value->temperature, 21.8);
    EXPECT_NE(*decoded.value, forecastOf("london.json"));
  }
}

TEST(Forecast, ToleratesListsOfDifferentLengthsAndNumbersInOtherForms) {
  JSON json = *parseJSON(sample("london.json"));
  json["current"]["weather_code"] = 61.0;
  json["hourly"]["temperature_2m"] = {20, 21.5};
  json["hourly"]["weather_code"] = {3, 2.5, 1};
  json["daily"]["sunset"] = JSON::array();
  const auto decoded = decodeForecast(compactJSON(json));
  ASSERT_TRUE(decoded.value) << decoded.problem;
  EXPECT_EQ(decoded.value->code, 61);
  ASSERT_EQ(decoded.value->hourly.size(), 1u) << "2.5 is no code, and the third hour has no temperature";
  EXPECT_EQ(decoded.value->hourly[0].temperature, 20);
  EXPECT_EQ(decoded.value->sunset, std::nullopt);
  EXPECT_NE(decoded.value->sunrise, std::nullopt);
}

TEST(Forecast, PassesOverTimesOfAnotherForm) {
  for (const char* bad : {"2026-07-14T10:00:00", "2026-07-14 10:00", "2026-07-14T10:00Z", "2026-07-14", "14.07.2026",
                          "2026-02-30T10:00", "2026-07-14T24:00", ""}) {
    SCOPED_TRACE(bad);
    JSON json = *parseJSON(sample("london.json"));
    json["hourly"]["time"][0] = bad;
    const auto decoded = decodeForecast(compactJSON(json));
    ASSERT_TRUE(decoded.value);
    EXPECT_EQ(decoded.value->hourly.size(), 6u);
  }
}

TEST(Forecast, HasNoZoneBeyondEighteenHours) {
  const std::pair<int, std::optional<std::string>> rows[] = {
      {0, "GMT"}, {-12600, "GMT-03:30"}, {64800, "GMT+18:00"}, {64801, std::nullopt}, {-64801, std::nullopt}};
  for (const auto& [offset, zone] : rows) {
    JSON json = *parseJSON(sample("minimal.json"));
    json["utc_offset_seconds"] = offset;
    EXPECT_EQ(decodeForecast(compactJSON(json)).value->timeZone, zone) << offset;
  }
  Forecast without;
  EXPECT_EQ(placeCalendar(without, Calendar("Europe/Berlin", "de_DE")).zone(), "Europe/Berlin");
}

TEST(Forecast, SaysWhyAnAnswerIsRejected) {
  const std::pair<std::string, const char*> rows[] = {
      {"", "no JSON"},
      {"<html>", "no JSON"},
      {"[1,2]", "no JSON object"},
      {R"({"hourly":{"temperature_2m":[nan]}})", "no JSON"},
      {sample("london.json").substr(0, 900), "no JSON"},
      {std::string(100000, '['), "no JSON"},
      {sample("error.json"), "Minutely API request limit exceeded"},
  };
  for (const auto& [text, problem] : rows) {
    const auto decoded = decodeForecast(text);
    EXPECT_FALSE(decoded.value);
    EXPECT_THAT(decoded.problem, HasSubstr(problem));
  }
}

TEST(Forecast, AsksForEverythingInOneRequest) {
  EXPECT_EQ(forecastRequest(defaultPlace(), false),
            "/v1/forecast?latitude=51.5074&longitude=-0.1278"
            "&current=temperature_2m,weather_code,wind_speed_10m,wind_direction_10m,apparent_temperature,"
            "relative_humidity_2m,dew_point_2m,uv_index"
            "&hourly=temperature_2m,weather_code,precipitation_probability&forecast_hours=7"
            "&minutely_15=precipitation&forecast_minutely_15=9"
            "&daily=temperature_2m_max,temperature_2m_min,sunrise,sunset,weather_code,uv_index_max&forecast_days=7"
            "&timezone=auto&temperature_unit=celsius&wind_speed_unit=kmh");
  EXPECT_THAT(forecastRequest(defaultSecondPlace(), true),
              testing::AllOf(testing::StartsWith("/v1/forecast?latitude=40.7128&longitude=-74.006&current="),
                             testing::EndsWith("&temperature_unit=fahrenheit&wind_speed_unit=mph")));
  EXPECT_EQ(airQualityRequest(defaultPlace()),
            "/v1/air-quality?latitude=51.5074&longitude=-0.1278&current=us_aqi,european_aqi,pm2_5");
}

// A day's data outlives the day when the machine was offline over midnight.
TEST(Forecast, ShowsThePresentDayOfThePlaceAndNotTheFirstEntry) {
  const Calendar user("America/Los_Angeles", "en_US");
  struct Row {
    const char* file;
    const char* now;
    std::size_t daysLeft, hoursLeft;
    DayRange range;
  };
  const Row rows[] = {
      {"london.json", "2026-07-14T09:41:00Z", 7, 7, {25.0, 14.0}},
      {"london.json", "2026-07-14T22:59:59Z", 7, 0, {25.0, 14.0}},  // 23:59:59 there
      {"london.json", "2026-07-14T23:00:00Z", 6, 0, {25.2, 14.2}},  // midnight there
      {"london.json", "2026-07-14T10:00:00Z", 7, 6, {25.0, 14.0}},  // an hour has just begun
      {"london.json", "2026-07-20T23:00:00Z", 0, 0, {}},
      {"kiritimati.json", "2026-11-21T10:05:00Z", 7, 7, {29.0, 25.0}},  // the 22nd there
      {"pago-pago.json", "2026-11-21T10:50:00Z", 7, 7, {29.0, 25.0}},   // still the 20th there
      {"pago-pago.json", "2026-11-21T11:00:00Z", 6, 6, {29.2, 25.2}},
      {"minimal.json", "2026-07-20T23:00:00Z", 0, 0, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.file) + " at " + row.now);
    const Forecast f = forecastOf(row.file);
    const Calendar place = placeCalendar(f, user);
    EXPECT_EQ(upcomingDays(f, place, at(row.now)).size(), row.daysLeft);
    EXPECT_EQ(upcomingHours(f, at(row.now)).size(), row.hoursLeft);
    const auto range = todaysRange(f, place, at(row.now));
    EXPECT_EQ(range.high.has_value(), row.range.high.has_value());
    if (range.high) {
      EXPECT_NEAR(*range.high, *row.range.high, 0.3);
      EXPECT_NEAR(*range.low, *row.range.low, 0.3);
    }
  }
  const Forecast f = forecastOf("london.json");
  const Calendar place = placeCalendar(f, user);
  EXPECT_EQ(todaysRange(f, place, at("2026-07-14T22:59:59Z")).uvMax, 6.9);
  EXPECT_EQ(todaysRange(f, place, at("2026-07-14T23:00:00Z")).uvMax, 6.75);
  EXPECT_EQ(todaysRange(f, place, at("2026-07-20T23:00:00Z")).uvMax, std::nullopt);
}

}  // namespace
}  // namespace ambrel
