#include "tests/core/weather/Samples.h"

namespace ambrel {
namespace {

TEST(AirQualityScale, NamesEveryBand) {
  struct Row {
    double value;
    int band;
    const char* label;
  };
  const auto check = [](AirQualityScale scale, std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
      EXPECT_EQ(airQualityBand(scale, row.value), row.band) << row.value;
      EXPECT_EQ(airQualityLabel(scale, airQualityBand(scale, row.value)), row.label) << row.value;
    }
  };
  check(AirQualityScale::us, {{-1, 0, "Good"},
                              {50, 0, "Good"},
                              {50.1, 1, "Moderate"},
                              {100, 1, "Moderate"},
                              {100.1, 2, "Unhealthy for some"},
                              {200, 3, "Unhealthy"},
                              {300, 4, "Very unhealthy"},
                              {300.5, 5, "Hazardous"}});
  check(AirQualityScale::european, {{0, 0, "Good"},
                                    {20, 0, "Good"},
                                    {40, 1, "Fair"},
                                    {60, 2, "Moderate"},
                                    {80, 3, "Poor"},
                                    {100, 4, "Very poor"},
                                    {100.01, 5, "Extremely poor"}});
  EXPECT_EQ(airQualityLabel(AirQualityScale::us, -3), "Good");
  EXPECT_EQ(airQualityLabel(AirQualityScale::european, 9), "Extremely poor");
  EXPECT_EQ(label(AirQualityScale::us), "US AQI");
  EXPECT_EQ(label(AirQualityScale::european), "EU AQI");
  EXPECT_EQ(fromName<AirQualityScale>("european"), AirQualityScale::european);
  EXPECT_EQ(fromName<AirQualityScale>("EU"), std::nullopt);
}

TEST(AirQuality, IsDecodedWithItsGaps) {
  const auto whole = decodeAirQuality(sample("air-london.json"));
  ASSERT_TRUE(whole.value) << whole.problem;
  EXPECT_EQ(*whole.value, (AirQuality{42, 31, 7.3}));
  EXPECT_EQ(airQualityValue(*whole.value, AirQualityScale::us), 42);
  EXPECT_EQ(airQualityValue(*whole.value, AirQualityScale::european), 31);
  const auto gaps = decodeAirQuality(sample("air-gaps.json"));
  ASSERT_TRUE(gaps.value) << gaps.problem;
  EXPECT_EQ(*gaps.value, (AirQuality{std::nullopt, 58, std::nullopt}));
  for (const std::string& text :
       {std::string("{}"), std::string(R"({"current":null})"), std::string(R"({"current":3})"), sample("error.json"),
        std::string("gateway timeout")})
    EXPECT_FALSE(decodeAirQuality(text).value) << text;
}

TEST(Weather, IsStaleOnceARequestAndItsRetryHaveFailed) {
  const Instant updated = at("2026-11-21T09:00:00Z");
  EXPECT_FALSE(isWeatherStale(updated, updated + std::chrono::minutes(45)));
  EXPECT_TRUE(isWeatherStale(updated, updated + std::chrono::minutes(46)));
}

TEST(UVScale, RoundsBeforeItNames) {
  struct Row {
    double index;
    int band;
    const char* label;
  };
  for (const Row& row :
       {Row{0, 0, "Low"}, Row{2.49, 0, "Low"}, Row{2.5, 1, "Moderate"}, Row{5.49, 1, "Moderate"}, Row{5.5, 2, "High"},
        Row{7.5, 3, "Very high"}, Row{10.4, 3, "Very high"}, Row{10.5, 4, "Extreme"}, Row{16, 4, "Extreme"}}) {
    EXPECT_EQ(UVScale::band(row.index), row.band) << row.index;
    EXPECT_EQ(UVScale::label(UVScale::band(row.index)), row.label) << row.index;
  }
  EXPECT_EQ(UVScale::label(-1), "Low");
  EXPECT_EQ(UVScale::label(5), "Extreme");
}

}  // namespace
}  // namespace ambrel
