#include "app/weather/WeatherArea.h"

namespace ambrel {
namespace {

// A mild day in spring with a shower.
WeatherReading sampleReading(Instant now) {
  using namespace std::chrono;
  Forecast forecast{.temperature = 21,
                    .code = 2,
                    .high = 24,
                    .low = 13,
                    .windSpeed = 14,
                    .windDirection = 225,
                    .apparentTemperature = 20,
                    .humidity = 55,
                    .dewPoint = 11,
                    .uvIndex = 4,
                    .uvMax = 6,
                    .sunrise = now - hours(6),
                    .sunset = now + hours(8),
                    .hourly = {},
                    .daily = {},
                    .suns = {},
                    .rainSlots = {},
                    .rainChances = {},
                    .timeZone = {}};
  forecast.suns = {{.sunrise = forecast.sunrise, .sunset = forecast.sunset}};
  constexpr int codes[] = {2, 1, 0, 3, 61, 80, 2};
  for (int i = 0; i < 7; ++i) {
    forecast.hourly.push_back({.date = now + hours(i), .temperature = 21.0 - i, .code = codes[i]});
    forecast.daily.push_back(
        {.date = now + days(i), .high = 24.0 - i % 3, .low = 13.0 - i % 2, .code = codes[i], .uvMax = 6});
  }
  for (int i = 0; i < 8; ++i)
    forecast.rainSlots.push_back({.start = now + minutes(15 * i), .millimeters = i < 3 ? 0.0 : 0.4});
  return {.forecast = forecast,
          .updatedAt = now,
          .airQuality = AirQuality{.us = 42, .european = 21, .pm25 = 8},
          .airUpdatedAt = now};
}

}  // namespace

QVariantMap WeatherArea::sample(DockWidget widget) {
  const WeatherPlace place = widget == DockWidget::secondCity ? defaultSecondPlace() : defaultPlace();
  const Instant now = now_();
  return {{QStringLiteral("texts"), QVariant::fromValue(weatherTexts(place, sampleReading(now), calendar_(), now))}};
}

}  // namespace ambrel
