#pragma once
// One request over HTTP, within limits: no cookies, no logins, no cache.

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <chrono>
#include <functional>
#include <optional>

#include "core/web/AskSchedule.h"

class QNetworkAccessManager;
class QObject;

namespace ambrel {

struct DownloadLimits {
  std::chrono::milliseconds time{20000};  // for the whole answer
  qint64 bytes = 1 << 20;
  int redirections = 3;
  bool allowsPlain = false;  // http beyond this machine: the user has typed the address of a server of their own
};

struct Download {
  std::optional<QByteArray> body;  // of a good answer
  QString problem;                 // why there is none
  FetchFailure failure = FetchFailure::bad;
  int status = 0;                // of HTTP; 0 when no server was reached
  std::chrono::seconds wait{0};  // how long the server wants to be left alone; 0: it does not say
  QUrl url;                      // where it came from in the end
};

// `answered` is called once, later and on this thread, as long as `receiver` lives. An address that is not safe is not
// asked, nor is one that a redirection leads to; `mayFollow` may refuse more of them.
void download(QNetworkAccessManager& network, const QUrl& address, const DownloadLimits& limits, QObject* receiver,
              std::function<void(Download)> answered, std::function<bool(const QUrl&)> mayFollow = {});

}  // namespace ambrel
