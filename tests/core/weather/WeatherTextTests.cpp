#include "tests/core/weather/Samples.h"

namespace ambrel {
namespace {

TEST(WeatherCodes, HaveASymbolAndATextOrNeither) {
  // The first and the last code of some groups, and what is around them.
  const std::pair<int, const char*> rows[] = {
      {-1, "cloud.sun"},      {0, "sun.max.fill"},     {2, "cloud.sun.fill"},        {4, "cloud.sun"},
      {48, "cloud.fog.fill"}, {50, "cloud.sun"},       {51, "cloud.drizzle.fill"},   {57, "cloud.drizzle.fill"},
      {58, "cloud.sun"},      {82, "cloud.rain.fill"}, {95, "cloud.bolt.rain.fill"}, {99, "cloud.bolt.rain.fill"},
      {100, "cloud.sun"}};
  for (const auto& [code, symbol] : rows) EXPECT_EQ(weatherSymbol(code), symbol) << code;
  for (int code = -3; code <= 110; ++code)
    EXPECT_EQ(weatherText(code).empty(), weatherSymbol(code) == "cloud.sun") << code;
  EXPECT_EQ(weatherSymbol(std::nullopt), "cloud.sun");
  EXPECT_EQ(weatherText(std::nullopt), "");
  EXPECT_EQ(weatherText(2), "Partly cloudy");
}

TEST(WeatherTexts, RoundAsPeopleDo) {
  const Calendar us("UTC", "en_US");
  for (const auto& [value, text] :
       {std::pair{21.4, "21°"}, {21.5, "22°"}, {-0.4, "0°"}, {-0.5, "-1°"}, {104.0, "104°"}})
    EXPECT_EQ(degreesText(us, value), text) << value;
  EXPECT_EQ(feelsLikeText(us, 19.4, 21.8), "3° colder");
  EXPECT_EQ(feelsLikeText(us, 24.6, 21.8), "3° warmer");
  // Both are shown as 22: the tile must not speak of a difference that it does not show.
  EXPECT_EQ(feelsLikeText(us, 21.6, 22.4), "Like the air");
  EXPECT_EQ(spanText(Seconds(16 * 3600 + 14 * 60)), "16 h 14 min");
  EXPECT_EQ(spanText(Seconds(7200)), "2 h");
  EXPECT_EQ(spanText(Seconds(59.4 * 60)), "59 min");
}

TEST(WeatherTexts, NameTheSixteenWinds) {
  using Row = std::pair<double, const char*>;
  for (const auto& [degrees, point] :
       {Row{11.2, "N"}, Row{11.25, "NNE"}, Row{228, "SW"}, Row{236.3, "WSW"}, Row{348.74, "NNW"}, Row{348.75, "N"},
        Row{360, "N"}, Row{-90, "W"}, Row{450, "E"}})
    EXPECT_EQ(compassPoint(degrees), point) << degrees;
}

TEST(SunSummary, FollowsTheDay) {
  using Kind = SunSummary::Kind;
  struct Row {
    const char *file, *now;
    Kind kind;
    const char* next;
    double progress;  // below zero: none
  };
  const Row rows[] = {
      {"london.json", "2026-07-14T02:00:00Z", Kind::rises, "2026-07-14T03:58:00Z", -1},
      {"london.json", "2026-07-14T03:58:00Z", Kind::sets, "2026-07-14T20:12:00Z", 0},
      {"london.json", "2026-07-14T12:05:00Z", Kind::sets, "2026-07-14T20:12:00Z", 0.5},
      {"london.json", "2026-07-14T20:12:00Z", Kind::rises, "2026-07-15T03:59:00Z", -1},
      {"london.json", "2026-07-20T20:06:00Z", Kind::unknown, nullptr, -1},  // the last day of an old answer is over
      {"gaps.json", "2026-07-14T09:41:00Z", Kind::rises, "2026-07-15T03:59:00Z", -1},
      {"polar-day.json", "2026-06-21T10:10:00Z", Kind::staysUp, nullptr, -1},
      {"polar-night.json", "2026-12-21T11:10:00Z", Kind::staysDown, nullptr, -1},
      {"minimal.json", "2026-07-14T09:41:00Z", Kind::unknown, nullptr, -1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.file) + " at " + row.now);
    const auto sun = sunSummary(forecastOf(row.file), at(row.now));
    EXPECT_EQ(sun.kind, row.kind);
    EXPECT_EQ(sun.next, row.next ? std::optional(at(row.next)) : std::nullopt);
    EXPECT_NEAR(sun.dayProgress.value_or(-1), row.progress, 0.001);
  }
  EXPECT_EQ(sunSummary(forecastOf("london.json"), at("2026-07-14T09:41:00Z")).dayLength, Seconds(16 * 3600 + 14 * 60));
  // In the evening the length is still that of the day that was.
  EXPECT_EQ(sunSummary(forecastOf("london.json"), at("2026-07-14T21:00:00Z")).dayLength, Seconds(16 * 3600 + 14 * 60));
}

TEST(AirQualityScale, NamesEveryBand) {
  using enum AirQualityScale;
  using Row = std::tuple<AirQualityScale, double, int, const char*>;
  for (const auto& [scale, value, band, label] :
       {Row{us, -1, 0, "Good"}, Row{us, 50, 0, "Good"}, Row{us, 50.1, 1, "Moderate"},
        Row{us, 100.1, 2, "Unhealthy for some"}, Row{us, 200, 3, "Unhealthy"}, Row{us, 300, 4, "Very unhealthy"},
        Row{us, 300.5, 5, "Hazardous"}, Row{european, 20, 0, "Good"}, Row{european, 40, 1, "Fair"},
        Row{european, 60, 2, "Moderate"}, Row{european, 80, 3, "Poor"}, Row{european, 100, 4, "Very poor"},
        Row{european, 100.01, 5, "Extremely poor"}}) {
    EXPECT_EQ(airQualityBand(scale, value), band) << value;
    EXPECT_EQ(airQualityLabel(scale, band), label) << value;
  }
}

TEST(AirQuality, IsDecodedWithItsGaps) {
  EXPECT_EQ(decodeAirQuality(sample("air-london.json")).value, (AirQuality{42, 31, 7.3}));
  EXPECT_EQ(decodeAirQuality(sample("air-gaps.json")).value, (AirQuality{std::nullopt, 58, std::nullopt}));
  EXPECT_EQ(airQualityValue({42, 31, 7.3}, AirQualityScale::european), 31);
  for (const char* text : {"{}", R"({"current":null})", R"({"current":3})", "gateway timeout"})
    EXPECT_FALSE(decodeAirQuality(text).value) << text;
  EXPECT_FALSE(decodeAirQuality(sample("error.json")).value);
}

TEST(Weather, IsStaleOnceARequestAndItsRetryHaveFailed) {
  const Instant updated = at("2026-11-21T09:00:00Z");
  EXPECT_FALSE(isWeatherStale(updated, updated + std::chrono::minutes(45)));
  EXPECT_TRUE(isWeatherStale(updated, updated + std::chrono::minutes(46)));
}

TEST(UVScale, RoundsBeforeItNames) {
  const std::tuple<double, int, const char*> rows[] = {
      {0, 0, "Low"},         {2.49, 0, "Low"},       {2.5, 1, "Moderate"}, {5.49, 1, "Moderate"}, {5.5, 2, "High"},
      {7.5, 3, "Very high"}, {10.4, 3, "Very high"}, {10.5, 4, "Extreme"}, {16, 4, "Extreme"}};
  for (const auto& [index, band, label] : rows) {
    EXPECT_EQ(UVScale::band(index), band) << index;
    EXPECT_EQ(UVScale::label(band), label) << index;
  }
}

const Instant now = at("2026-11-21T09:07:00Z");

// Starts are counted from now.
struct Row {
  const char* what;
  std::vector<std::pair<seconds, double>> slots;
  std::vector<std::pair<seconds, int>> chances;
  RainSoon::Summary expected;
};

TEST(RainSoon, SumsUpTheNextTwoHours) {
  const RainSoon::Summary none{"No forecast", "Waiting for data", false};
  const RainSoon::Summary dry{"No rain soon", "Dry for the next 2 h", false};
  const Row rows[] = {
      {"nothing at all", {}, {}, none},
      {"chances alone", {}, {{minutes(0), 90}}, none},
      {"a slot that began 14 minutes ago is in progress",
       {{-minutes(14), 0.2}, {minutes(1), 0.2}, {minutes(16), 0}},
       {},
       {"Raining now", "Stops in 15 min", true}},
      {"one that began 15 minutes ago is over", {{-minutes(15), 0.2}}, {}, none},
      {"one that begins now", {{seconds(0), 0.1}}, {}, {"Raining now", "For the next 2 h", true}},
      {"just below the threshold", {{seconds(0), 0.09}}, {}, dry},
      {"one that begins at the horizon is beyond it", {{minutes(120), 5}}, {}, none},
      {"one just before it", {{minutes(120) - seconds(1), 0.2}}, {}, {"Rain in 2 h", "Light rain", true}},
      {"2 minutes ahead", {{minutes(2), 0.2}}, {}, {"Rain in 5 min", "Light rain", true}},
      {"62 minutes ahead", {{minutes(62), 0.2}}, {}, {"Rain in 1 h", "Light rain", true}},
      {"the first wet slot counts, not the wettest",
       {{minutes(8), 0}, {minutes(23), 0.62}, {minutes(38), 3}},
       {},
       {"Rain in 25 min", "Light rain", true}},
      {"a rate of 2.5", {{minutes(8), 0.625}}, {}, {"Rain in 10 min", "Moderate rain", true}},
      {"a rate of 7.6", {{minutes(8), 1.9}}, {}, {"Rain in 10 min", "Heavy rain", true}},
      {"a chance of 39", {{minutes(8), 0}}, {{minutes(-7), 39}}, dry},
      {"a chance of 40", {{minutes(8), 0}}, {{minutes(-7), 40}}, {"Rain possible", "40% chance in 2 h", false}},
      {"the greatest of those in reach",
       {{minutes(8), 0}},
       {{minutes(-60), 99}, {minutes(-59), 41}, {minutes(53), 70}, {minutes(120), 95}},
       {"Rain possible", "70% chance in 2 h", false}},
      {"rain in the minutes outweighs the chances",
       {{minutes(8), 0.1}},
       {{minutes(-7), 5}},
       {"Rain in 10 min", "Light rain", true}},
      {"a dry slot in progress, then rain",
       {{-minutes(7), 0}, {minutes(8), 2}},
       {},
       {"Rain in 10 min", "Heavy rain", true}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    std::vector<RainSoon::Slot> slots;
    for (const auto& slot : row.slots) slots.push_back({now + slot.first, slot.second});
    std::vector<RainSoon::Chance> chances;
    for (const auto& chance : row.chances) chances.push_back({now + chance.first, chance.second});
    const auto summary = RainSoon::summary(slots, chances, now, RainSoon::usualHorizon);
    EXPECT_EQ(summary, row.expected) << summary.title << ", " << summary.detail;
  }
}

TEST(RainSoon, RoundsDurationsToFiveMinutes) {
  const std::pair<double, const char*> rows[] = {{-600, "5 min"},          {0, "5 min"},         {149, "5 min"},
                                                 {449, "5 min"},           {450, "10 min"},      {59 * 60, "1 h"},
                                                 {57.4 * 60, "55 min"},    {57.5 * 60, "1 h"},   {62.4 * 60, "1 h"},
                                                 {62.5 * 60, "1 h 5 min"}, {5400, "1 h 30 min"}, {7199, "2 h"}};
  for (const auto& [span, text] : rows) EXPECT_EQ(RainSoon::duration(Seconds(span)), text) << span;
}

}  // namespace
}  // namespace ambrel
