#pragma once
// When the weather of one place is asked for: the regular rhythm, what follows a failure, and what waits while nobody
// looks. Requests themselves are the caller's.

#include "core/weather.h"
#include "core/web/AskSchedule.h"

namespace ambrel {

class WeatherSchedule {
 public:
  // What to ask for now.
  struct Requests {
    bool forecast = false, airQuality = false;
    friend bool operator==(const Requests&, const Requests&) = default;
  };
  // `jitter` lengthens every pause by a share of it.
  explicit WeatherSchedule(double jitter = 0)
      : forecast_(weatherInterval, jitter), rhythm_{weatherInterval, 1 + jitter} {}

  const AskTimes& forecast() const { return forecast_.times(); }
  const AskTimes& airQuality() const { return air_; }
  bool isWanted() const { return forecast_.isWanted(); }

  // Whether anybody looks at this place's weather. Nothing is asked for otherwise.
  [[nodiscard]] Requests setWanted(bool isWanted, Instant now);
  // The forecast at once, and the air quality if due; while nobody looks, later.
  [[nodiscard]] Requests refresh(Instant now);
  [[nodiscard]] Requests tick(Instant now);
  // The next moment at which `tick` has something to ask for.
  std::optional<Instant> due() const;
  // Another place: there are no answers yet.
  [[nodiscard]] Requests restart(Instant now);

  void forecastAnswered() { forecast_.answered(); }
  void airQualityAnswered(Instant now);
  // `wait`: how long the server wants to be left alone, 0 if it does not say.
  void forecastFailed(FetchFailure kind, Seconds wait, Instant now);
  void airQualityFailed(FetchFailure kind, Seconds wait, Instant now);

  // The network is back: what was not reached is asked for again.
  void networkReturned(Instant now);
  // Networks need a moment to come back after a sleep.
  void slept(Instant now);
  void clockMoved(Seconds by);

 private:
  // The forecast was asked for; so is the air, if it is due.
  Requests withAir(Instant now);
  bool isAirQualityDue(Instant now) const;
  void askAirQuality(Instant now);

  AskSchedule forecast_;
  AskRhythm rhythm_;
  AskTimes air_;  // without a next time while a request is under way
};

}  // namespace ambrel
