#include "app/weather/WeatherService.h"

#include <QNetworkReply>
#include <QPointer>
#include <QRandomGenerator>
#include <QTimer>
#include <algorithm>

namespace ambrel {
namespace {

QUrl hostFrom(const UserDefaults& defaults, const Setting<std::string>& setting, const QUrl& fallback) {
  const QUrl url(QString::fromStdString(valueOf(defaults, setting)), QUrl::StrictMode);
  return url.isValid() && !url.host().isEmpty() ? url : fallback;
}

// No server may keep the program away for more than a day.
std::chrono::seconds askedToWait(const QNetworkReply& reply) {
  bool isNumber = false;
  const int seconds = reply.rawHeader("Retry-After").trimmed().toInt(&isNumber);
  return std::chrono::seconds(isNumber ? std::clamp(seconds, 0, 86400) : 0);
}

// One request under way: collects the body within its limits and answers once.
class Fetch : public QObject {
 public:
  Fetch(QNetworkReply* reply, const WeatherLimits& limits, QObject* receiver, WeatherService::Answer answered)
      : QObject(reply), reply_(reply), receiver_(receiver), answered_(std::move(answered)) {
    // The library's own limit is for each pause between bytes; a slow drip would never reach it.
    deadline_.setSingleShot(true);
    connect(&deadline_, &QTimer::timeout, this, [this] { giveUp(QStringLiteral("it took too long")); });
    deadline_.start(limits.time);
    connect(reply, &QNetworkReply::readyRead, this, [this, most = limits.bytes] {
      body_ += reply_->readAll();
      if (body_.size() > most) giveUp(QStringLiteral("it is too large"));
    });
    connect(reply, &QNetworkReply::finished, this, [this] { finished(); });
  }

 private:
  void giveUp(const QString& problem) {
    if (problem_.isEmpty()) problem_ = problem;
    reply_->abort();
  }

  void finished() {
    deadline_.stop();
    reply_->deleteLater();
    // A reply that was given up is closed.
    if (reply_->isOpen()) body_ += reply_->readAll();
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (problem_.isEmpty() && reply_->error() != QNetworkReply::NoError) problem_ = reply_->errorString();
    if (problem_.isEmpty() && status != 200) problem_ = QStringLiteral("the server says %1").arg(status);
    if (!receiver_) return;
    if (problem_.isEmpty()) {
      answered_(std::move(body_), {});
      return;
    }
    constexpr int tooManyRequests = 429;
    const auto kind = status == 0                 ? WeatherFailure::unreached
                      : status == tooManyRequests ? WeatherFailure::refused
                                                  : WeatherFailure::bad;
    answered_(std::nullopt, {problem_, kind, askedToWait(*reply_)});
  }

  QNetworkReply* reply_;
  QPointer<QObject> receiver_;
  WeatherService::Answer answered_;
  QTimer deadline_;
  QByteArray body_;
  QString problem_;
};

}  // namespace

WeatherHosts weatherHosts(const UserDefaults& defaults) {
  const WeatherHosts open;
  return {hostFrom(defaults, setting::weatherForecastURL, open.forecast),
          hostFrom(defaults, setting::weatherAirQualityURL, open.airQuality),
          hostFrom(defaults, setting::weatherGeocodingURL, open.geocoding)};
}

WeatherService::WeatherService(WeatherHosts hosts, WeatherLimits limits, QObject* parent)
    : QObject(parent), hosts_(std::move(hosts)), limits_(limits) {}

double WeatherService::jitter() const { return limits_.jitter * QRandomGenerator::global()->generateDouble(); }

void WeatherService::get(Kind kind, const std::string& request, QObject* receiver, Answer answered) {
  // It brings threads and memory of its own, so a bar without weather makes none.
  if (!network_) network_ = new QNetworkAccessManager(this);
  const QUrl& host = kind == Kind::forecast     ? hosts_.forecast
                     : kind == Kind::airQuality ? hosts_.airQuality
                                                : hosts_.geocoding;
  QString address = host.toString(QUrl::FullyEncoded | QUrl::StripTrailingSlash);
  address += QString::fromStdString(request);
  QNetworkRequest ask(QUrl(address, QUrl::StrictMode));
  ask.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Tilebay"));
  ask.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
  ask.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  ask.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  ask.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  ask.setMaximumRedirectsAllowed(limits_.redirections);
  ask.setDecompressedSafetyCheckThreshold(limits_.bytes);
  new Fetch(network_->get(ask), limits_, receiver, std::move(answered));
}

}  // namespace ambrel
