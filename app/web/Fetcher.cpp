#include "app/web/Fetcher.h"

#include <QNetworkAccessManager>

namespace ambrel {

void Fetcher::get(const QUrl& address, const DownloadLimits& limits, QObject* receiver,
                  std::function<void(Download)> answered, std::function<bool(const QUrl&)> mayFollow) {
  if (!network_) network_ = new QNetworkAccessManager(this);
  download(*network_, address, limits, receiver, std::move(answered), std::move(mayFollow));
}

bool Fetcher::isOnline() {
  if (!reachability_) {
    reachability_ = std::make_unique<Reachability>();
    connect(reachability_.get(), &Reachability::changed, this, &Fetcher::onlineChanged);
  }
  return reachability_->isOnline();
}

QString fetchProblem(std::optional<FetchFailure> failure, bool isOnline) {
  if (!failure) return QObject::tr("Waiting for data");
  return !isOnline && failure == FetchFailure::unreached ? QObject::tr("Offline") : QObject::tr("No answer yet");
}

QUrl addressFrom(const QString& chosen, const QUrl& fallback) {
  const QUrl url(chosen, QUrl::StrictMode);
  return url.isValid() && !url.host().isEmpty() ? url : fallback;
}

}  // namespace ambrel
