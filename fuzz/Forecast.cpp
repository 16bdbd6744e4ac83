// Whatever a forecast service sends, the texts of every tile can be made from it.

#include <cmath>

#include "core/weather.h"
#include "fuzz/Require.h"

using namespace ambrel;

namespace {

void useAll(const Forecast& forecast, Instant now) {
  static const Calendar user("Europe/Berlin", "en_US");
  const Calendar place = placeCalendar(forecast, user);
  require(!RainSoon::summary(forecast.rainSlots, forecast.rainChances, now, RainSoon::usualHorizon).title.empty());
  require(upcomingHours(forecast, now).size() <= forecast.hourly.size());
  require(upcomingDays(forecast, place, now).size() <= forecast.daily.size());
  todaysRange(forecast, place, now);
  const SunSummary sun = sunSummary(forecast, now);
  require(!sun.dayProgress || (*sun.dayProgress >= 0 && *sun.dayProgress < 1));
  require(!sun.next || *sun.next > now);
  require(!degreesText(user, *forecast.temperature).empty());
  require(!weatherSymbol(forecast.code).empty());
  if (forecast.apparentTemperature) feelsLikeText(user, *forecast.apparentTemperature, *forecast.temperature);
  if (forecast.windDirection) require(!compassPoint(*forecast.windDirection).empty());
  if (forecast.uvIndex) require(!UVScale::label(UVScale::band(*forecast.uvIndex)).empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto decoded = decodeForecast({reinterpret_cast<const char*>(data), size});
  require(decoded.value.has_value() == decoded.problem.empty());
  if (!decoded.value) return 0;
  require(decoded.value->temperature && std::isfinite(*decoded.value->temperature) && decoded.value->code);
  useAll(*decoded.value, *parseISO8601("2026-07-14T09:41:00Z"));
  for (const auto& hour : decoded.value->hourly) useAll(*decoded.value, hour.date);
  return 0;
}
