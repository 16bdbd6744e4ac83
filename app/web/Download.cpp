#include "app/web/Download.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QTimer>
#include <algorithm>

#include "core/web/Address.h"

namespace ambrel {
namespace {

// No server may keep the program away for more than a day.
std::chrono::seconds askedToWait(const QNetworkReply& reply) {
  bool isNumber = false;
  const int seconds = reply.rawHeader("Retry-After").trimmed().toInt(&isNumber);
  return std::chrono::seconds(isNumber ? std::clamp(seconds, 0, 86400) : 0);
}

FetchFailure kindOf(int status) {
  constexpr int tooManyRequests = 429;
  return status == 0 ? FetchFailure::unreached : status == tooManyRequests ? FetchFailure::refused : FetchFailure::bad;
}

std::string textOf(const QUrl& url) { return url.toString(QUrl::FullyEncoded).toStdString(); }

// One request under way: collects the body within its limits and answers once.
class Fetch : public QObject {
 public:
  Fetch(QNetworkReply* reply, const DownloadLimits& limits, QObject* receiver, std::function<void(Download)> answered)
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
    Download all{.body = {},
                 .problem = problem_,
                 .failure = kindOf(status),
                 .status = status,
                 .wait = askedToWait(*reply_),
                 .url = reply_->url()};
    if (problem_.isEmpty()) all.body = std::move(body_);
    answered_(std::move(all));
  }

  QNetworkReply* reply_;
  QPointer<QObject> receiver_;
  std::function<void(Download)> answered_;
  QTimer deadline_;
  QByteArray body_;
  QString problem_;
};

}  // namespace

void download(QNetworkAccessManager& network, const QUrl& address, const DownloadLimits& limits, QObject* receiver,
              std::function<void(Download)> answered, std::function<bool(const QUrl&)> mayFollow) {
  if (!mayBeAsked(textOf(address), limits.allowsPlain)) {
    QTimer::singleShot(0, receiver, [answered = std::move(answered), address] {
      answered({.body = {}, .problem = QStringLiteral("the address is not safe"), .url = address});
    });
    return;
  }
  QNetworkRequest ask(address);
  ask.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Tilebay"));
  ask.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
  ask.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  ask.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  ask.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  ask.setMaximumRedirectsAllowed(limits.redirections);
  ask.setDecompressedSafetyCheckThreshold(limits.bytes);
  QNetworkReply* reply = network.get(ask);
  // The library does not count redirections that it has to ask for.
  auto follows = [reply, mayFollow = std::move(mayFollow), left = limits.redirections,
                  allowsPlain = limits.allowsPlain](const QUrl& to) mutable {
    const QUrl next = reply->url().resolved(to);
    if (left-- > 0 && mayLeadTo(textOf(reply->url()), textOf(next), allowsPlain) && (!mayFollow || mayFollow(next)))
      Q_EMIT reply->redirectAllowed();
    else
      reply->abort();
  };
  QObject::connect(reply, &QNetworkReply::redirected, reply, std::move(follows));
  new Fetch(reply, limits, receiver, std::move(answered));
}

}  // namespace ambrel
