#include <algorithm>

#include "core/base/Text.h"
#include "core/weather.h"

namespace ambrel {
namespace {

std::string coordinates(const WeatherPlace& place) {
  return "latitude=" + shortestDecimal(place.latitude) + "&longitude=" + shortestDecimal(place.longitude);
}

std::string percentEncodedQuery(std::string_view text) {
  std::string out;
  for (const auto piece : split(text, '/')) {
    if (!out.empty() || piece.data() != text.data()) out += "%2F";
    out += percentEncodedPath(piece);
  }
  return out;
}

}  // namespace

std::string forecastRequest(const WeatherPlace& place, bool usesFahrenheit) {
  return "/v1/forecast?" + coordinates(place) +
         "&current=temperature_2m,weather_code,wind_speed_10m,wind_direction_10m,apparent_temperature,"
         "relative_humidity_2m,dew_point_2m,uv_index"
         "&hourly=temperature_2m,weather_code,precipitation_probability&forecast_hours=7"
         "&minutely_15=precipitation&forecast_minutely_15=9"
         "&daily=temperature_2m_max,temperature_2m_min,sunrise,sunset,weather_code,uv_index_max&forecast_days=7"
         "&timezone=auto&temperature_unit=" +
         (usesFahrenheit ? "fahrenheit" : "celsius") + "&wind_speed_unit=" + (usesFahrenheit ? "mph" : "kmh");
}

std::string airQualityRequest(const WeatherPlace& place) {
  return "/v1/air-quality?" + coordinates(place) + "&current=us_aqi,european_aqi,pm2_5";
}

std::string geocodingRequest(std::string_view text) {
  return "/v1/search?name=" + percentEncodedQuery(text) + "&count=6&language=en";
}

bool isWeatherStale(Instant updatedAt, Instant now) { return now - updatedAt > weatherInterval * 3 / 2; }

}  // namespace ambrel
