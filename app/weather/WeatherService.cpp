#include "app/weather/WeatherService.h"

#include <QRandomGenerator>

namespace ambrel {
namespace {

QUrl hostFrom(const UserDefaults& defaults, const Setting<std::string>& setting, const QUrl& fallback) {
  return addressFrom(QString::fromStdString(valueOf(defaults, setting)), fallback);
}

}  // namespace

WeatherHosts weatherHosts(const UserDefaults& defaults) {
  const WeatherHosts open;
  return {hostFrom(defaults, setting::weatherForecastURL, open.forecast),
          hostFrom(defaults, setting::weatherAirQualityURL, open.airQuality),
          hostFrom(defaults, setting::weatherGeocodingURL, open.geocoding)};
}

WeatherService::WeatherService(Fetcher& fetcher, WeatherHosts hosts, DownloadLimits limits, double mostJitter)
    : fetcher_(fetcher), hosts_(std::move(hosts)), limits_(limits), mostJitter_(mostJitter) {
  // Only an address that the user has typed is not https.
  limits_.allowsPlain = true;
}

double WeatherService::jitter() const { return mostJitter_ * QRandomGenerator::global()->generateDouble(); }

void WeatherService::get(Kind kind, const std::string& request, QObject* receiver, Answer answered) {
  const QUrl& host = kind == Kind::forecast     ? hosts_.forecast
                     : kind == Kind::airQuality ? hosts_.airQuality
                                                : hosts_.geocoding;
  QString address = host.toString(QUrl::FullyEncoded | QUrl::StripTrailingSlash);
  address += QString::fromStdString(request);
  fetcher_.get(QUrl(address, QUrl::StrictMode), limits_, receiver, [answered = std::move(answered)](Download all) {
    if (all.body)
      answered(std::move(all.body), {});
    else
      answered(std::nullopt, {all.problem, all.failure, all.wait});
  });
}

}  // namespace ambrel
