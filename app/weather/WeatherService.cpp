#include "app/weather/WeatherService.h"

#include <QRandomGenerator>

namespace ambrel {
namespace {

QUrl hostFrom(const UserDefaults& defaults, const Setting<std::string>& setting, const QUrl& fallback) {
  const QUrl url(QString::fromStdString(valueOf(defaults, setting)), QUrl::StrictMode);
  return url.isValid() && !url.host().isEmpty() ? url : fallback;
}

WeatherFailure kindOf(int status) {
  constexpr int tooManyRequests = 429;
  return status == 0                 ? WeatherFailure::unreached
         : status == tooManyRequests ? WeatherFailure::refused
                                     : WeatherFailure::bad;
}

}  // namespace

WeatherHosts weatherHosts(const UserDefaults& defaults) {
  const WeatherHosts open;
  return {hostFrom(defaults, setting::weatherForecastURL, open.forecast),
          hostFrom(defaults, setting::weatherAirQualityURL, open.airQuality),
          hostFrom(defaults, setting::weatherGeocodingURL, open.geocoding)};
}

WeatherService::WeatherService(WeatherHosts hosts, DownloadLimits limits, double mostJitter)
    : hosts_(std::move(hosts)), limits_(limits), mostJitter_(mostJitter) {}

double WeatherService::jitter() const { return mostJitter_ * QRandomGenerator::global()->generateDouble(); }

void WeatherService::get(Kind kind, const std::string& request, QObject* receiver, Answer answered) {
  // It brings threads and memory of its own, so a bar without weather makes none.
  if (!network_) network_ = new QNetworkAccessManager(this);
  const QUrl& host = kind == Kind::forecast     ? hosts_.forecast
                     : kind == Kind::airQuality ? hosts_.airQuality
                                                : hosts_.geocoding;
  QString address = host.toString(QUrl::FullyEncoded | QUrl::StripTrailingSlash);
  address += QString::fromStdString(request);
  download(*network_, QUrl(address, QUrl::StrictMode), limits_, receiver,
           [answered = std::move(answered)](Download all) {
             if (all.body)
               answered(std::move(all.body), {});
             else
               answered(std::nullopt, {all.problem, kindOf(all.status), all.wait});
           });
}

}  // namespace ambrel
