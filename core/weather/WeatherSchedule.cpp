#include "core/weather/WeatherSchedule.h"

#include <algorithm>

namespace ambrel {
namespace {

// Without a reading of the air.
constexpr std::chrono::seconds soon{60};

}  // namespace

WeatherSchedule::Requests WeatherSchedule::setWanted(bool isWanted, Instant now) {
  return forecast_.setWanted(isWanted, now) ? withAir(now) : Requests{};
}

WeatherSchedule::Requests WeatherSchedule::refresh(Instant now) {
  return forecast_.refresh(now) ? withAir(now) : Requests{};
}

WeatherSchedule::Requests WeatherSchedule::withAir(Instant now) {
  const bool isPutOff = air_.failures > 0 && air_.nextAt && *air_.nextAt > now;
  const bool asksAir = !isPutOff && isAirQualityDue(now);
  if (asksAir) askAirQuality(now);
  return {.forecast = true, .airQuality = asksAir};
}

WeatherSchedule::Requests WeatherSchedule::tick(Instant now) {
  if (!isWanted()) return {};
  Requests requests;
  if (forecast_.tick(now)) requests = withAir(now);
  if (air_.isDue(now)) {
    requests.airQuality = isAirQualityDue(now);
    if (requests.airQuality)
      askAirQuality(now);
    else
      air_.nextAt = *air_.askedAt + (air_.hasAnswer ? weatherInterval : soon);
  }
  return requests;
}

std::optional<Instant> WeatherSchedule::due() const {
  if (!isWanted()) return std::nullopt;
  const auto forecast = forecast_.due();
  if (!forecast || !air_.nextAt) return forecast ? forecast : air_.nextAt;
  return std::min(*forecast, *air_.nextAt);
}

WeatherSchedule::Requests WeatherSchedule::restart(Instant now) {
  air_ = {};
  return forecast_.restart(now) ? withAir(now) : Requests{};
}

void WeatherSchedule::airQualityAnswered(Instant now) {
  air_.answered();
  air_.nextAt = advanced(air_.askedAt.value_or(now), Seconds(rhythm_.interval) * rhythm_.stretch);
}

void WeatherSchedule::forecastFailed(FetchFailure kind, Seconds wait, Instant now) {
  forecast_.failed(kind, wait, now);
}

void WeatherSchedule::airQualityFailed(FetchFailure kind, Seconds wait, Instant now) {
  air_.nextAt = advanced(air_.askedAt.value_or(now), air_.failed(kind, wait, rhythm_));
}

void WeatherSchedule::networkReturned(Instant now) {
  forecast_.networkReturned(now);
  air_.networkReturned(now);
}

void WeatherSchedule::slept(Instant now) {
  forecast_.slept(now);
  air_.slept(now);
}

void WeatherSchedule::clockMoved(Seconds by) {
  forecast_.clockMoved(by);
  air_.clockMoved(by);
}

// Half an hour after a reading, a minute without one.
bool WeatherSchedule::isAirQualityDue(Instant now) const {
  if (!air_.askedAt || *air_.askedAt > now) return true;
  return now >= *air_.askedAt + (air_.hasAnswer ? weatherInterval : soon);
}

void WeatherSchedule::askAirQuality(Instant now) {
  air_.askedAt = now;
  air_.nextAt.reset();
}

}  // namespace ambrel
