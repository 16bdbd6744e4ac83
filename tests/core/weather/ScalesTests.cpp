#include "tests/core/weather/Samples.h"

namespace ambrel {
namespace {

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

}  // namespace
}  // namespace ambrel
