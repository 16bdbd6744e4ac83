#include <algorithm>
#include <array>
#include <cmath>

#include "core/weather.h"
#include "core/weather/Response.h"

namespace ambrel {
namespace {

struct Scale {
  std::string_view label;
  std::array<double, 5> upTo;
  std::array<std::string_view, 6> labels;
};

constexpr Scale usScale{"US AQI",
                        {50, 100, 150, 200, 300},
                        {"Good", "Moderate", "Unhealthy for some", "Unhealthy", "Very unhealthy", "Hazardous"}};
constexpr Scale europeanScale{
    "EU AQI", {20, 40, 60, 80, 100}, {"Good", "Fair", "Moderate", "Poor", "Very poor", "Extremely poor"}};

constexpr const Scale& scaleOf(AirQualityScale scale) { return scale == AirQualityScale::us ? usScale : europeanScale; }

constexpr std::array<std::string_view, 5> uvLabels{"Low", "Moderate", "High", "Very high", "Extreme"};

}  // namespace

Decoded<AirQuality> decodeAirQuality(std::string_view json) {
  const Answer answer(json);
  if (!answer.problem.empty()) return {std::nullopt, answer.problem};
  const JSON* current = objectField(answer.root, "current");
  if (!current) return {std::nullopt, "\"current\" is missing or of another type"};
  return {AirQuality{.us = numberField(*current, "us_aqi"),
                     .european = numberField(*current, "european_aqi"),
                     .pm25 = numberField(*current, "pm2_5")},
          {}};
}

std::string_view label(AirQualityScale scale) { return scaleOf(scale).label; }

int airQualityBand(AirQualityScale scale, double value) {
  const auto& upTo = scaleOf(scale).upTo;
  return static_cast<int>(std::lower_bound(upTo.begin(), upTo.end(), value) - upTo.begin());
}

std::string_view airQualityLabel(AirQualityScale scale, int band) {
  return scaleOf(scale).labels[static_cast<std::size_t>(std::clamp(band, 0, 5))];
}

std::optional<double> airQualityValue(const AirQuality& air, AirQualityScale scale) {
  return scale == AirQualityScale::us ? air.us : air.european;
}

int UVScale::band(double index) {
  const double rounded = std::round(index);
  if (rounded < 3) return 0;
  if (rounded < 6) return 1;
  if (rounded < 8) return 2;
  if (rounded < 11) return 3;
  return 4;
}

std::string_view UVScale::label(int band) { return uvLabels[static_cast<std::size_t>(std::clamp(band, 0, 4))]; }

}  // namespace ambrel
