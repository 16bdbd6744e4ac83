#pragma once
// Requests to the weather services, over HTTP.

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>
#include <string>

#include "app/web/Fetcher.h"
#include "core/settings.h"
#include "core/weather/WeatherSchedule.h"

namespace ambrel {

// Where the services are: scheme, host and port, and a path before the service's own if there is one.
struct WeatherHosts {
  QUrl forecast{QStringLiteral("https://api.open-meteo.com")};
  QUrl airQuality{QStringLiteral("https://air-quality-api.open-meteo.com")};
  QUrl geocoding{QStringLiteral("https://geocoding-api.open-meteo.com")};
  bool operator==(const WeatherHosts&) const = default;
};

// From the keys "weatherForecastURL", "weatherAirQualityURL" and "weatherGeocodingURL", each the address of the user's
// own server. Without one, or with one that is not HTTP, the public service is used.
WeatherHosts weatherHosts(const UserDefaults& defaults);

// Why there is no answer, and how long the server wants to be left alone (0: it does not say).
struct WeatherProblem {
  QString text;
  FetchFailure kind = FetchFailure::bad;
  std::chrono::seconds wait{0};
};

class WeatherService : public QObject {
  Q_OBJECT

 public:
  enum class Kind { forecast, airQuality, geocoding };
  // The body of a good answer, or nothing and why.
  using Answer = std::function<void(std::optional<QByteArray> body, const WeatherProblem& problem)>;

  // mostJitter: the largest share by which pauses between two requests are lengthened, at random.
  // The fetcher outlives it.
  explicit WeatherService(Fetcher& fetcher, WeatherHosts hosts, DownloadLimits limits = {}, double mostJitter = 0.05);

  // `answered` is called once, later and on this thread, as long as `receiver` lives.
  void get(Kind kind, const std::string& request, QObject* receiver, Answer answered);
  void setHosts(WeatherHosts hosts) { hosts_ = std::move(hosts); }
  // For a WeatherSchedule.
  double jitter() const;

 private:
  Fetcher& fetcher_;
  WeatherHosts hosts_;
  DownloadLimits limits_;
  double mostJitter_;
};

}  // namespace ambrel
