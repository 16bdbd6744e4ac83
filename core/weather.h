#pragma once
// Weather: what the forecast, air-quality and geocoding services answer, and what the tiles make of it.
// The services are Open-Meteo's, or anyone's who speaks their form.

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"
#include "core/base/EnumText.h"

namespace ambrel {

struct WeatherPlace {
  std::string name;
  std::optional<std::string> country;
  double latitude = 0;   // degrees, north positive
  double longitude = 0;  // degrees, east positive
  friend bool operator==(const WeatherPlace&, const WeatherPlace&) = default;
};

// London; what a model shows until the user has chosen.
WeatherPlace defaultPlace();
// New York.
WeatherPlace defaultSecondPlace();
// As JSON, the form in which a place is stored.
std::string encodedPlace(const WeatherPlace& place);
// Absent for anything that lacks a name or holds no point of the globe.
std::optional<WeatherPlace> decodedPlace(std::string_view json);
// "London, United Kingdom"
std::string placeLabel(const WeatherPlace& place);

// What a search finds: a place, and the region that tells it from its namesakes.
struct FoundPlace {
  WeatherPlace place;
  std::optional<std::string> region;
  friend bool operator==(const FoundPlace&, const FoundPlace&) = default;
};
// "Massachusetts, United States"; "" when nothing is known.
std::string regionLabel(const FoundPlace& found);

struct WeatherHour {
  Instant date;
  double temperature = 0;
  int code = 0;  // WMO weather code
  friend bool operator==(const WeatherHour&, const WeatherHour&) = default;
};

struct WeatherDay {
  Instant date;  // noon of the day, in the place's zone
  double high = 0;
  double low = 0;
  int code = 0;
  std::optional<double> uvMax{};
  friend bool operator==(const WeatherDay&, const WeatherDay&) = default;
};

struct SunDay {
  std::optional<Instant> sunrise;
  std::optional<Instant> sunset;
  friend bool operator==(const SunDay&, const SunDay&) = default;
};

struct AirQuality {
  std::optional<double> us;        // US index
  std::optional<double> european;  // European index
  std::optional<double> pm25;      // micrograms per cubic metre
  friend bool operator==(const AirQuality&, const AirQuality&) = default;
};

// Whether it rains within the next hours.
struct RainSoon {
  struct Slot {
    Instant start;           // of a quarter of an hour
    double millimeters = 0;  // of rain in it
    friend bool operator==(const Slot&, const Slot&) = default;
  };
  struct Chance {
    Instant start;  // of an hour
    int percent = 0;
    friend bool operator==(const Chance&, const Chance&) = default;
  };
  struct Summary {
    std::string title;
    std::string detail;
    bool isWet = false;
    friend bool operator==(const Summary&, const Summary&) = default;
  };

  static constexpr std::chrono::seconds usualHorizon{7200};

  static Summary summary(const std::vector<Slot>& slots, const std::vector<Chance>& chances, Instant now,
                         std::chrono::seconds horizon);
  // "25 min", "1 h", "1 h 30 min": to the nearest five minutes, at least five.
  static std::string duration(Seconds span);
};

// One answer of the forecast service. Temperatures and speeds are in the units that were asked for; a value that
// the service left out or gave as null is absent.
struct Forecast {
  std::optional<double> temperature;
  std::optional<int> code;
  std::optional<double> high, low;      // today's
  std::optional<double> windSpeed;      // km/h, or mph with Fahrenheit
  std::optional<double> windDirection;  // degrees that the wind comes from
  std::optional<double> apparentTemperature;
  std::optional<double> humidity;  // per cent
  std::optional<double> dewPoint;
  std::optional<double> uvIndex, uvMax;    // now; today's greatest
  std::optional<Instant> sunrise, sunset;  // today's
  std::vector<WeatherHour> hourly;
  std::vector<WeatherDay> daily;
  std::vector<SunDay> suns;  // one a day, the first is today's
  std::vector<RainSoon::Slot> rainSlots;
  std::vector<RainSoon::Chance> rainChances;
  // "GMT+01:00"; absent when the offset that the service gave is no zone's.
  std::optional<std::string> timeZone;
  friend bool operator==(const Forecast&, const Forecast&) = default;
};

// A decoded answer, or the reason for which it was rejected.
template <typename T>
struct Decoded {
  std::optional<T> value;
  std::string problem;
};

// The whole answer is rejected when a field that has to be there is missing or of another type. Within lists, null
// and anything that cannot be read is a gap: the entry is dropped.
Decoded<Forecast> decodeForecast(std::string_view json);
Decoded<AirQuality> decodeAirQuality(std::string_view json);
// At most six.
Decoded<std::vector<FoundPlace>> decodePlaces(std::string_view json);

// Path and query of each request.
std::string forecastRequest(const WeatherPlace& place, bool usesFahrenheit);
std::string airQualityRequest(const WeatherPlace& place);
std::string geocodingRequest(std::string_view text);

// Between two forecasts.
inline constexpr std::chrono::seconds weatherInterval{1800};
// Older than a regular request and its retry would leave it.
bool isWeatherStale(Instant updatedAt, Instant now);

enum class AirQualityScale { us, european };
// "US AQI", "EU AQI"
std::string_view label(AirQualityScale scale);
// 0, the best, to 5.
int airQualityBand(AirQualityScale scale, double value);
// A band outside 0 to 5 counts as the nearest.
std::string_view airQualityLabel(AirQualityScale scale, int band);
std::optional<double> airQualityValue(const AirQuality& air, AirQualityScale scale);

struct UVScale {
  // 0 to 4, by the nearest whole index.
  static int band(double index);
  // A band outside 0 to 4 counts as the nearest.
  static std::string_view label(int band);
};

// A system symbol for a WMO code: "cloud.rain.fill"; "cloud.sun" for an unknown one or none.
std::string_view weatherSymbol(std::optional<int> code);
// "Partly cloudy"; "" for an unknown code or none.
std::string_view weatherText(std::optional<int> code);

// The user's calendar in the place's zone.
Calendar placeCalendar(const Forecast& forecast, const Calendar& user);
// From the hour that contains `now` on.
std::vector<WeatherHour> upcomingHours(const Forecast& forecast, Instant now);
// From the place's present day on. An answer may be from yesterday.
std::vector<WeatherDay> upcomingDays(const Forecast& forecast, const Calendar& place, Instant now);
// What is forecast for the place's present day; absent when the forecast does not reach it.
struct DayRange {
  std::optional<double> high{}, low{}, uvMax{};
  friend bool operator==(const DayRange&, const DayRange&) = default;
};
DayRange todaysRange(const Forecast& forecast, const Calendar& place, Instant now);

// What the sun does next at the place.
struct SunSummary {
  enum class Kind { unknown, rises, sets, staysUp, staysDown };
  Kind kind = Kind::unknown;
  std::optional<Instant> next;        // of the rise or the setting
  std::optional<double> dayProgress;  // 0 at sunrise to 1 at sunset, while the sun is up
  std::optional<Seconds> dayLength;   // of the present day
  friend bool operator==(const SunSummary&, const SunSummary&) = default;
};
SunSummary sunSummary(const Forecast& forecast, Instant now);

// "21°", never "-0°"
std::string degreesText(const Calendar& calendar, double value);
// The sixteen points that a wind can come from: "N", "NNE", ...
std::string_view compassPoint(double degrees);
// How the apparent temperature differs from the measured one, in whole degrees as shown: "2° warmer", "Like the air".
std::string feelsLikeText(const Calendar& calendar, double apparent, double measured);
// "8 h 12 min"
std::string spanText(Seconds span);

}  // namespace ambrel
