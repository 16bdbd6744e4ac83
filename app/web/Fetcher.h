#pragma once
// The program's one way to servers: every request of a tile goes through it.

#include <memory>

#include "app/web/Download.h"
#include "app/web/Reachability.h"

namespace ambrel {

// Main thread. Nothing of it runs before the first request: the library's connections bring threads and memory of
// their own, which a bar without such tiles does without.
class Fetcher : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // As `download`.
  void get(const QUrl& address, const DownloadLimits& limits, QObject* receiver, std::function<void(Download)> answered,
           std::function<bool(const QUrl&)> mayFollow = {});
  // What the desktop says of the network, followed from the first call on.
  bool isOnline();

 Q_SIGNALS:
  void onlineChanged(bool isOnline);

 private:
  QNetworkAccessManager* network_ = nullptr;
  std::unique_ptr<Reachability> reachability_;
};

// Why a tile has nothing to show, in words: nothing was asked yet, or the last request has failed.
QString fetchProblem(std::optional<FetchFailure> failure, bool isOnline);
// The address that the user has chosen; `fallback` when that is empty or no address of a server.
QUrl addressFrom(const QString& chosen, const QUrl& fallback);

}  // namespace ambrel
