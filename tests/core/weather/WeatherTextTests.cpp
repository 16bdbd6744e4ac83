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

}  // namespace
}  // namespace ambrel
