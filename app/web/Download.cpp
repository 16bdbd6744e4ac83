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

// One question under way: follows redirections, collects the body within its limits and answers once. It follows them
// by itself, because the library tells of one when the reply has taken on the new address, and forgets the old one.
class Fetch : public QObject {
 public:
  using Answered = std::function<void(Download)>;
  using MayFollow = std::function<bool(const QUrl&)>;

  Fetch(QNetworkAccessManager& network, const DownloadLimits& limits, QObject* receiver, Answered answered,
        MayFollow mayFollow)
      : QObject(&network),
        network_(network),
        limits_(limits),
        left_(limits.redirections),
        receiver_(receiver),
        answered_(std::move(answered)),
        mayFollow_(std::move(mayFollow)) {
    // The library's own limit is for each pause between bytes; a slow drip would never reach it.
    deadline_.setSingleShot(true);
    connect(&deadline_, &QTimer::timeout, this, [this] { giveUp(QStringLiteral("it took too long")); });
    deadline_.start(limits.time);
  }

  void ask(const QUrl& address) {
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Tilebay"));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setDecompressedSafetyCheckThreshold(limits_.bytes);
    body_.clear();
    reply_ = network_.get(request);
    connect(reply_, &QNetworkReply::readyRead, this, [this] {
      body_ += reply_->readAll();
      if (body_.size() > limits_.bytes) giveUp(QStringLiteral("it is too large"));
    });
    connect(reply_, &QNetworkReply::finished, this, [this] { finished(); });
  }

 private:
  void giveUp(const QString& problem) {
    if (problem_.isEmpty()) problem_ = problem;
    reply_->abort();
  }

  // Where the answer leads, if it may.
  std::optional<QUrl> next() {
    const QUrl target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (target.isEmpty() || !problem_.isEmpty() || left_-- <= 0) return std::nullopt;
    const QUrl there = reply_->url().resolved(target);
    const bool may = mayLeadTo(textOf(reply_->url()), textOf(there), limits_.allowsPlain);
    return may && (!mayFollow_ || mayFollow_(there)) ? std::optional(there) : std::nullopt;
  }

  void finished() {
    reply_->deleteLater();
    if (const auto there = next()) return ask(*there);
    deadline_.stop();
    deleteLater();
    // A reply that was given up is closed.
    if (reply_->isOpen()) body_ += reply_->readAll();
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool isRefused = status != 0 && status != 200;
    // The library's words for a refusal hold the whole address, which may be a secret.
    if (problem_.isEmpty() && isRefused) problem_ = QStringLiteral("the server says %1").arg(status);
    if (problem_.isEmpty() && reply_->error() != QNetworkReply::NoError) problem_ = reply_->errorString();
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

  QNetworkAccessManager& network_;
  DownloadLimits limits_;
  int left_;  // of the redirections
  QNetworkReply* reply_ = nullptr;
  QPointer<QObject> receiver_;
  Answered answered_;
  MayFollow mayFollow_;
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
  (new Fetch(network, limits, receiver, std::move(answered), std::move(mayFollow)))->ask(address);
}

}  // namespace ambrel
