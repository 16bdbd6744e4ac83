#pragma once
// When the weather of one place is asked for: the regular rhythm, what follows a failure, and what waits while nobody
// looks. Requests themselves are the caller's.

#include "core/weather.h"

namespace ambrel {

// Why there is no answer.
enum class WeatherFailure {
  unreached,  // no server was reached; perhaps the network is not there
  refused,    // the server is asked too often
  bad         // anything else that it said
};

class WeatherSchedule {
 public:
  // What to ask for now.
  struct Requests {
    bool forecast = false, airQuality = false;
    friend bool operator==(const Requests&, const Requests&) = default;
  };
  // One of the two services.
  struct Service {
    std::optional<Instant> askedAt{};  // the last time
    std::optional<Instant> nextAt{};   // absent before the first request, and while one for the air is under way
    bool hasAnswer = false;            // there is something to show
    int failures = 0;                  // in a row, and alike
    WeatherFailure last = WeatherFailure::bad;
    friend bool operator==(const Service&, const Service&) = default;
  };

  // `jitter` lengthens every pause by a share of it: the programs that start at nine are not to ask all at once for the
  // rest of the day.
  explicit WeatherSchedule(double jitter = 0) : stretch_(1 + jitter) {}

  const Service& forecast() const { return forecast_; }
  const Service& airQuality() const { return air_; }
  bool isWanted() const { return isWanted_; }

  // Whether anybody looks at this place's weather. Nothing is asked for otherwise.
  [[nodiscard]] Requests setWanted(bool isWanted, Instant now);
  // The forecast at once, and the air quality if due; while nobody looks, later.
  [[nodiscard]] Requests refresh(Instant now);
  [[nodiscard]] Requests tick(Instant now);
  // The next moment at which `tick` has something to ask for.
  std::optional<Instant> due() const;
  // Another place: there are no answers yet.
  [[nodiscard]] Requests restart(Instant now);

  void forecastAnswered();
  void airQualityAnswered(Instant now);
  // `wait`: how long the server wants to be left alone, 0 if it does not say.
  void forecastFailed(WeatherFailure kind, Seconds wait, Instant now);
  void airQualityFailed(WeatherFailure kind, Seconds wait, Instant now);

  // The network is back: what was not reached is asked for again.
  void networkReturned(Instant now);
  // Networks need a moment to come back after a sleep.
  void slept(Instant now);
  void clockMoved(Seconds by);

 private:
  bool isAirQualityDue(Instant now) const;
  void askAirQuality(Instant now);
  Seconds pauseAfter(Service& service, WeatherFailure kind, Seconds wait) const;

  double stretch_;
  bool isWanted_ = false;
  Service forecast_, air_;
};

// How long to wait after that many failures in a row, of which `last` is the last. Trying again where no server was
// reached burdens nobody, and nothing else may tell that the network is back. After a bad answer the next regular
// request is soon enough; with nothing to show the first tries come quickly and then ever later.
std::chrono::seconds retryPause(int failures, WeatherFailure last, bool hasAnswer);

}  // namespace ambrel
