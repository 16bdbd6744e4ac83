#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>

#include "core/base/LocalText.h"
#include "core/weather.h"

namespace ambrel {
namespace {

struct CodeRow {
  int first, last;  // both included
  std::string_view symbol;
  std::string_view text;
};

constexpr std::array codeRows{
    CodeRow{0, 0, "sun.max.fill", "Clear"},
    CodeRow{1, 1, "cloud.sun.fill", "Mostly clear"},
    CodeRow{2, 2, "cloud.sun.fill", "Partly cloudy"},
    CodeRow{3, 3, "cloud.fill", "Cloudy"},
    CodeRow{45, 45, "cloud.fog.fill", "Fog"},
    CodeRow{48, 48, "cloud.fog.fill", "Freezing fog"},
    CodeRow{51, 55, "cloud.drizzle.fill", "Drizzle"},
    CodeRow{56, 57, "cloud.drizzle.fill", "Icy drizzle"},
    CodeRow{61, 61, "cloud.rain.fill", "Light rain"},
    CodeRow{62, 64, "cloud.rain.fill", "Rain"},
    CodeRow{65, 65, "cloud.rain.fill", "Heavy rain"},
    CodeRow{66, 67, "cloud.rain.fill", "Icy rain"},
    CodeRow{71, 71, "cloud.snow.fill", "Light snow"},
    CodeRow{72, 74, "cloud.snow.fill", "Snow"},
    CodeRow{75, 75, "cloud.snow.fill", "Heavy snow"},
    CodeRow{76, 77, "cloud.snow.fill", "Snow grains"},
    CodeRow{80, 81, "cloud.rain.fill", "Showers"},
    CodeRow{82, 82, "cloud.rain.fill", "Heavy showers"},
    CodeRow{85, 86, "cloud.snow.fill", "Snow showers"},
    CodeRow{95, 95, "cloud.bolt.rain.fill", "Thunderstorm"},
    CodeRow{96, 99, "cloud.bolt.rain.fill", "Thunder, hail"},
};

const CodeRow* rowOf(std::optional<int> code) {
  if (!code) return nullptr;
  const auto found = std::find_if(codeRows.begin(), codeRows.end(),
                                  [&](const CodeRow& row) { return *code >= row.first && *code <= row.last; });
  return found == codeRows.end() ? nullptr : &*found;
}

constexpr std::array<std::string_view, 16> compass{"N", "NNE", "NE", "ENE", "E", "ESE", "SE", "SSE",
                                                   "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};

std::string wholeText(const Calendar& calendar, double value) {
  const double rounded = std::round(value);
  return decimal(calendar, rounded == 0 ? 0 : rounded, 0);
}

}  // namespace

std::string_view weatherSymbol(std::optional<int> code) {
  const CodeRow* row = rowOf(code);
  return row ? row->symbol : "cloud.sun";
}

std::string_view weatherText(std::optional<int> code) {
  const CodeRow* row = rowOf(code);
  return row ? row->text : std::string_view{};
}

Calendar placeCalendar(const Forecast& forecast, const Calendar& user) {
  return forecast.timeZone ? Calendar(*forecast.timeZone, user.locale()) : user;
}

std::vector<WeatherHour> upcomingHours(const Forecast& forecast, Instant now) {
  std::vector<WeatherHour> out;
  for (const auto& hour : forecast.hourly)
    if (hour.date + std::chrono::hours(1) > now) out.push_back(hour);
  return out;
}

std::vector<WeatherDay> upcomingDays(const Forecast& forecast, const Calendar& place, Instant now) {
  const Instant today = place.startOfDay(now);
  std::vector<WeatherDay> out;
  for (const auto& day : forecast.daily)
    if (day.date >= today) out.push_back(day);
  return out;
}

DayRange todaysRange(const Forecast& forecast, const Calendar& place, Instant now) {
  // Without dated days the answer's first entry is all there is.
  if (forecast.daily.empty()) return {forecast.high, forecast.low, forecast.uvMax};
  const std::string today = place.dayKey(now);
  for (const auto& day : forecast.daily)
    if (place.dayKey(day.date) == today) return {day.high, day.low, day.uvMax};
  return {};
}

SunSummary sunSummary(const Forecast& forecast, Instant now) {
  using std::chrono::hours;
  SunSummary out;
  for (const auto& sun : forecast.suns) {
    if (!sun.sunrise || !sun.sunset) continue;
    const auto length = *sun.sunset - *sun.sunrise;
    // In polar summer a day's light lasts from midnight to midnight; in polar winter the service gives both times
    // as one, and some versions the beginning of 1970.
    if (length >= hours(24)) {
      if (now < *sun.sunrise || now >= *sun.sunset) continue;
      return {SunSummary::Kind::staysUp, std::nullopt, std::nullopt, Seconds(hours(24))};
    }
    if (length <= hours(0)) continue;
    if (now < *sun.sunrise) {
      out.kind = SunSummary::Kind::rises;
      out.next = sun.sunrise;
      if (!out.dayLength) out.dayLength = Seconds(length);
      return out;
    }
    if (now < *sun.sunset) {
      out.kind = SunSummary::Kind::sets;
      out.next = sun.sunset;
      out.dayLength = Seconds(length);
      out.dayProgress = Seconds(now - *sun.sunrise) / Seconds(length);
      return out;
    }
    if (now - *sun.sunset < hours(24)) out.dayLength = Seconds(length);
  }
  const bool isDark = std::any_of(forecast.suns.begin(), forecast.suns.end(), [](const SunDay& sun) {
    return sun.sunrise && sun.sunset && *sun.sunset <= *sun.sunrise;
  });
  if (isDark) out.kind = SunSummary::Kind::staysDown;
  return out;
}

std::string degreesText(const Calendar& calendar, double value) { return wholeText(calendar, value) + "°"; }

std::string_view compassPoint(double degrees) {
  const double turn = std::fmod(std::fmod(degrees, 360) + 360, 360);
  return compass[static_cast<std::size_t>(std::lround(turn / 22.5)) % compass.size()];
}

std::string feelsLikeText(const Calendar& calendar, double apparent, double measured) {
  const double difference = std::round(apparent) - std::round(measured);
  if (difference == 0) return "Like the air";
  return degreesText(calendar, std::abs(difference)) + (difference > 0 ? " warmer" : " colder");
}

std::string spanText(Seconds span) {
  const auto minutes = std::llround(span.count() / 60);
  if (minutes < 60) return fmt::format("{} min", minutes);
  return minutes % 60 == 0 ? fmt::format("{} h", minutes / 60) : fmt::format("{} h {} min", minutes / 60, minutes % 60);
}

}  // namespace ambrel
