#include "core/base/JSON.h"
#include "tests/Matchers.h"
#include "tests/core/weather/Samples.h"

namespace ambrel {
namespace {

TEST(Forecast, PublishesWhatTheServiceAnswered) {
  const Forecast f = forecastOf("london.json");
  ASSERT_EQ(f.hourly.size(), 7u);
  EXPECT_EQ(f.hourly[3], (WeatherHour{at("2026-07-14T12:00:00Z"), 24.3, 61}));
  ASSERT_EQ(f.daily.size(), 7u);
  EXPECT_EQ(f.daily[1], (WeatherDay{at("2026-07-15T11:00:00Z"), 25.2, 14.2, 61, 6.75}));
  ASSERT_EQ(f.rainSlots.size(), 9u);
  EXPECT_EQ(f.rainSlots[4], (RainSoon::Slot{at("2026-07-14T10:30:00Z"), 0.63}));
  ASSERT_EQ(f.rainChances.size(), 7u);
  EXPECT_EQ(f.rainChances[2], (RainSoon::Chance{at("2026-07-14T11:00:00Z"), 55}));
  const std::optional<double> figures[] = {f.temperature,         f.high,     f.low,      f.windSpeed, f.windDirection,
                                           f.apparentTemperature, f.humidity, f.dewPoint, f.uvIndex,   f.uvMax};
  EXPECT_THAT(figures, ElementsAre(21.8, 25.0, 14.0, 14.2, 228.0, 19.4, 64.0, 14.7, 4.35, 6.9));
  EXPECT_EQ(f.code, 2);
  EXPECT_EQ(f.timeZone, "GMT+01:00");
  // Times of the answer are the place's own, an hour ahead of Greenwich.
  EXPECT_EQ(f.sunrise, at("2026-07-14T03:58:00Z"));
  EXPECT_EQ(f.sunset, at("2026-07-14T20:12:00Z"));
}

TEST(Forecast, ReadsTimesWithTheOffsetOfThePlace) {
  const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"kathmandu.json", "GMT+05:45", "2026-11-21T12:15:00Z", "2026-11-21T06:15:00Z"},
      {"kiritimati.json", "GMT+14:00", "2026-11-21T10:00:00Z", "2026-11-21T22:00:00Z"},
      {"pago-pago.json", "GMT-11:00", "2026-11-21T10:00:00Z", "2026-11-20T23:00:00Z"}};
  for (const auto& [file, zone, firstHour, firstNoon] : rows) {
    const Forecast f = forecastOf(file);
    EXPECT_EQ(f.timeZone, zone);
    EXPECT_EQ(f.hourly.at(0).date, at(firstHour));
    EXPECT_EQ(f.daily.at(0).date, at(firstNoon));
    // The zone is one that the calendar knows: noon of a day is noon there.
    EXPECT_EQ(placeCalendar(f, Calendar("UTC", "")).fields(f.daily.front().date).hour, 12);
  }
}

TEST(Forecast, TakesNullForAGapAndNeverForZero) {
  const Forecast f = forecastOf("gaps.json");
  EXPECT_FALSE(f.windDirection || f.uvIndex || f.dewPoint || f.sunrise || f.uvMax);
  EXPECT_EQ(f.windSpeed, 14.2);
  EXPECT_EQ(f.high, std::nullopt) << "the first high is unknown; the second is another day's";
  EXPECT_EQ(f.low, 14.0);

  std::vector<std::string> hours, days;
  for (const auto& hour : f.hourly) hours.push_back(iso8601(hour.date).substr(11, 2));
  for (const auto& day : f.daily) days.push_back(iso8601(day.date).substr(8, 2));
  EXPECT_THAT(hours, ElementsAre("09", "13", "14", "15"));
  EXPECT_THAT(days, ElementsAre("17", "18", "19", "20"));
  EXPECT_EQ(f.rainSlots.front().start, at("2026-07-14T09:45:00Z"));
  EXPECT_EQ(f.rainSlots.size(), 7u);
  EXPECT_EQ(f.rainChances.front().start, at("2026-07-14T10:00:00Z"));
  EXPECT_EQ(f.rainChances.size(), 5u);
}

TEST(Forecast, NeedsNoOptionalField) {
  const Forecast f = forecastOf("minimal.json");
  Forecast expected;
  expected.temperature = 7;
  expected.code = 3;
  expected.timeZone = "GMT";
  EXPECT_EQ(f, expected);
}

TEST(Forecast, IsRejectedWholeWithoutARequiredField) {
  const JSON whole = *parseJSON(sample("london.json"));
  for (const char* text : {"/utc_offset_seconds", "/current", "/current/temperature_2m", "/current/weather_code",
                           "/hourly", "/hourly/time", "/hourly/temperature_2m", "/hourly/weather_code",
                           // The lists of days and of quarters of an hour.
                           "/daily", "/daily/temperature_2m_max", "/daily/temperature_2m_min", "/daily/sunrise",
                           "/daily/sunset", "/minutely_15/time", "/minutely_15/precipitation"}) {
    const JSON::json_pointer pointer(text);
    JSON missing = whole, null = whole, otherType = whole;
    missing[pointer.parent_pointer()].erase(pointer.back());
    null[pointer] = nullptr;
    otherType[pointer] = "warm";
    for (const JSON& broken : {missing, null, otherType}) {
      SCOPED_TRACE(std::string(text) + " is " + (broken.contains(pointer) ? broken[pointer].dump() : "missing"));
      const auto decoded = decodeForecast(compactJSON(broken));
      EXPECT_FALSE(decoded.value);
      EXPECT_THAT(decoded.problem, HasSubstr(pointer.back()));
    }
  }
}

TEST(Forecast, PassesOverAnOptionalFieldOfAnotherType) {
  const JSON whole = *parseJSON(sample("london.json"));
  for (const char* text : {"/current/wind_speed_10m", "/current/wind_direction_10m", "/current/apparent_temperature",
                           "/current/relative_humidity_2m", "/current/dew_point_2m", "/current/uv_index",
                           // Of the lists.
                           "/daily/uv_index_max", "/hourly/precipitation_probability", "/daily/time",
                           "/daily/weather_code", "/minutely_15"}) {
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
  for (const char* bad : {"2026-07-14T10:00:00", "2026-07-14 10:00", "2026-07-14T10:00Z", "2026-07-14",
                          "2026-02-30T10:00", "2026-07-14T24:00", ""}) {
    json = *parseJSON(sample("london.json"));
    json["hourly"]["time"][0] = bad;
    EXPECT_EQ(decodeForecast(compactJSON(json)).value.value().hourly.size(), 6u) << bad;
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
  using Row = std::pair<std::string, const char*>;
  for (const auto& [text, problem] :
       {Row{"", "no JSON"}, Row{"<html>", "no JSON"}, Row{"[1,2]", "no JSON object"},
        Row{R"({"hourly":{"temperature_2m":[nan]}})", "no JSON"}, Row{sample("london.json").substr(0, 900), "no JSON"},
        Row{std::string(100000, '['), "no JSON"}, Row{sample("error.json"), "Minutely API request limit exceeded"}}) {
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
              AllOf(StartsWith("/v1/forecast?latitude=40.7128&longitude=-74.006&current="),
                    EndsWith("&temperature_unit=fahrenheit&wind_speed_unit=mph")));
  EXPECT_EQ(airQualityRequest(defaultPlace()),
            "/v1/air-quality?latitude=51.5074&longitude=-0.1278&current=us_aqi,european_aqi,pm2_5");
}

// A day's data outlives the day when the machine was offline over midnight.
TEST(Forecast, ShowsThePresentDayOfThePlaceAndNotTheFirstEntry) {
  const Calendar user("America/Los_Angeles", "en_US");
  struct Row {
    const char *file, *now;
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

TEST(Places, AreStoredAsJSONAndReadBack) {
  const WeatherPlace places[] = {
      defaultPlace(), defaultSecondPlace(), {"Null Island", std::nullopt, 0, 0}, {"Æ \"ø\" 東京", "", -89.999999, 180}};
  for (const auto& place : places) EXPECT_EQ(decodedPlace(encodedPlace(place)), place) << encodedPlace(place);
  EXPECT_EQ(encodedPlace(defaultPlace()),
            R"({"country":"United Kingdom","latitude":51.5074,"longitude":-0.1278,"name":"London"})");
}

TEST(Places, ThatAreNoneAreNotDecoded) {
  for (const char* text :
       {"", "London", "null", "[]", R"({"name":"London","latitude":51.5})", R"({"latitude":51.5,"longitude":0})",
        R"({"name":7,"latitude":51.5,"longitude":0})", R"({"name":"X","latitude":"51","longitude":0})",
        R"({"name":"X","latitude":90.1,"longitude":0})", R"({"name":"X","latitude":0,"longitude":-180.5})"})
    EXPECT_EQ(decodedPlace(text), std::nullopt) << text;
}

TEST(Places, AreFoundByName) {
  const auto found = decodePlaces(sample("places-springfield.json"));
  ASSERT_TRUE(found.value) << found.problem;
  ASSERT_EQ(found.value->size(), 6u) << "the service gave seven";
  EXPECT_EQ((*found.value)[1].place, (WeatherPlace{"Springfield", "United States", 42.10148, -72.58981}));
  EXPECT_EQ(placeLabel((*found.value)[1].place), "Springfield, United States");
  EXPECT_EQ(regionLabel((*found.value)[1]), "Massachusetts, United States") << "or nobody could tell one from another";
  EXPECT_EQ(regionLabel({{"Singapore", "Singapore", 1.3, 103.9}, "Singapore"}), "Singapore");
  EXPECT_EQ(regionLabel({{"Null Island", std::nullopt, 0, 0}, std::nullopt}), "");
  EXPECT_EQ(regionLabel({{"Ramallah", std::nullopt, 31.9, 35.2}, "West Bank"}), "West Bank");
  EXPECT_EQ(placeLabel({"Null Island", std::nullopt, 0, 0}), "Null Island");

  const auto none = decodePlaces(sample("places-none.json"));
  ASSERT_TRUE(none.value);
  EXPECT_TRUE(none.value->empty());
  EXPECT_FALSE(decodePlaces(R"({"results":[{"name":"X","latitude":1}]})").value);
  EXPECT_FALSE(decodePlaces(sample("error.json")).value);
  EXPECT_FALSE(decodePlaces("[]").value);
}

TEST(Places, AreAskedForWithThePercentEncodedText) {
  for (const auto& [text, encoded] : {std::pair{"New York", "New%20York"},
                                      {"Zürich", "Z%C3%BCrich"},
                                      {"a&b=c+d#e?f", "a%26b%3Dc%2Bd%23e%3Ff"},
                                      {"/etc/50%", "%2Fetc%2F50%25"}})
    EXPECT_EQ(geocodingRequest(text), std::string("/v1/search?name=") + encoded + "&count=6&language=en");
}

}  // namespace
}  // namespace ambrel
