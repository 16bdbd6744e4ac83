#include "core/weather/WeatherSchedule.h"

#include <algorithm>

namespace ambrel {
namespace {

constexpr std::chrono::seconds wakingPause{10};
// Without a reading of the air.
constexpr std::chrono::seconds soon{60};

bool isPast(const std::optional<Instant>& time, Instant now) { return time && *time <= now; }

}  // namespace

WeatherSchedule::Requests WeatherSchedule::setWanted(bool isWanted, Instant now) {
  if (isWanted == isWanted_) return {};
  isWanted_ = isWanted;
  return isWanted_ && (!forecast_.nextAt || isPast(forecast_.nextAt, now)) ? refresh(now) : Requests{};
}

WeatherSchedule::Requests WeatherSchedule::refresh(Instant now) {
  if (!isWanted_) {
    forecast_.nextAt = now;
    return {};
  }
  forecast_.askedAt = now;
  forecast_.nextAt = advanced(now, weatherInterval * stretch_);
  const bool isPutOff = air_.failures > 0 && air_.nextAt && *air_.nextAt > now;
  const bool asksAir = !isPutOff && isAirQualityDue(now);
  if (asksAir) askAirQuality(now);
  return {.forecast = true, .airQuality = asksAir};
}

WeatherSchedule::Requests WeatherSchedule::tick(Instant now) {
  if (!isWanted_) return {};
  Requests requests;
  if (isPast(forecast_.nextAt, now)) requests = refresh(now);
  if (isPast(air_.nextAt, now)) {
    requests.airQuality = isAirQualityDue(now);
    if (requests.airQuality)
      askAirQuality(now);
    else
      air_.nextAt = *air_.askedAt + (air_.hasAnswer ? weatherInterval : soon);
  }
  return requests;
}

std::optional<Instant> WeatherSchedule::due() const {
  // What becomes due while nobody looks is asked for as soon as somebody does.
  if (!isWanted_) return std::nullopt;
  if (!forecast_.nextAt || !air_.nextAt) return forecast_.nextAt ? forecast_.nextAt : air_.nextAt;
  return std::min(*forecast_.nextAt, *air_.nextAt);
}

WeatherSchedule::Requests WeatherSchedule::restart(Instant now) {
  forecast_ = air_ = {};
  return refresh(now);
}

void WeatherSchedule::forecastAnswered() {
  forecast_.failures = 0;
  forecast_.hasAnswer = true;
}

void WeatherSchedule::airQualityAnswered(Instant now) {
  air_.failures = 0;
  air_.hasAnswer = true;
  air_.nextAt = advanced(air_.askedAt.value_or(now), weatherInterval * stretch_);
}

void WeatherSchedule::forecastFailed(WeatherFailure kind, Seconds wait, Instant now) {
  forecast_.nextAt = advanced(now, pauseAfter(forecast_, kind, wait));
}

void WeatherSchedule::airQualityFailed(WeatherFailure kind, Seconds wait, Instant now) {
  air_.nextAt = advanced(air_.askedAt.value_or(now), pauseAfter(air_, kind, wait));
}

void WeatherSchedule::networkReturned(Instant now) {
  for (Service* service : {&forecast_, &air_})
    if (service->failures > 0 && service->last == WeatherFailure::unreached) service->nextAt = now;
}

void WeatherSchedule::slept(Instant now) {
  for (Service* service : {&forecast_, &air_})
    if (service->nextAt) service->nextAt = std::max<Instant>(*service->nextAt, now + wakingPause);
}

void WeatherSchedule::clockMoved(Seconds by) {
  for (std::optional<Instant>* time : {&forecast_.askedAt, &forecast_.nextAt, &air_.askedAt, &air_.nextAt})
    if (*time) *time = advanced(**time, by);
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

Seconds WeatherSchedule::pauseAfter(Service& service, WeatherFailure kind, Seconds wait) const {
  // A server that was not reached and one that refuses are different stories.
  service.failures = service.failures > 0 && service.last == kind ? service.failures + 1 : 1;
  service.last = kind;
  return std::max<Seconds>(wait, retryPause(service.failures, kind, service.hasAnswer)) * stretch_;
}

std::chrono::seconds retryPause(int failures, WeatherFailure last, bool hasAnswer) {
  using std::chrono::seconds;
  if (failures <= 0) return weatherInterval;
  const auto doubled = [failures](seconds first, seconds most) {
    return std::min(most, first * (1 << std::min(failures - 1, 10)));
  };
  switch (last) {
    case WeatherFailure::unreached:
      return doubled(seconds(60), seconds(300));
    case WeatherFailure::refused:
      return doubled(weatherInterval, weatherInterval * 8);
    case WeatherFailure::bad:
      return hasAnswer ? weatherInterval : doubled(seconds(60), weatherInterval);
  }
  return weatherInterval;
}

}  // namespace ambrel
