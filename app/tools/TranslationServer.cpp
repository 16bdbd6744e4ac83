#include "app/tools/TranslationServer.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QPointer>
#include <QUrl>
#include <chrono>
#include <memory>

#include "app/web/ServerAddress.h"

namespace ambrel {
namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds look = 1500ms, whole = 60s;
constexpr qint64 mostBytes = 1 << 20;

QUrl callOf(const QString& address, const char* call) {
  return QUrl(
      address + (address.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/")) + QString::fromLatin1(call),
      QUrl::StrictMode);
}

// Gives it up when the answer is too long.
void limit(QNetworkReply* reply) {
  QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply] {
    if (reply->bytesAvailable() > mostBytes) reply->abort();
  });
}

std::string bodyOf(QNetworkReply* reply) { return reply->isOpen() ? reply->readAll().toStdString() : std::string(); }

}  // namespace

QNetworkAccessManager& TranslationServer::network() {
  // It brings threads and memory of its own, so it is made when something is asked.
  if (!network_) {
    network_ = new QNetworkAccessManager(this);
    network_->setProxy(QNetworkProxy::NoProxy);
  }
  return *network_;
}

void TranslationServer::check(const QString& address, std::function<void(bool)> known) {
  QNetworkRequest request = requestTo(callOf(address, "languages"));
  request.setTransferTimeout(static_cast<int>(look.count()));
  QNetworkReply* reply = network().get(request);
  limit(reply);
  connect(reply, &QNetworkReply::finished, this, [reply, known = std::move(known)] {
    reply->deleteLater();
    known(reply->error() == QNetworkReply::NoError && isLanguageList(bodyOf(reply)));
  });
}

void TranslationServer::translate(const QString& address, const TranslationTask& task, std::stop_token stop,
                                  std::function<void(const Translation&)> done) {
  QNetworkRequest request = requestTo(callOf(address, "translate"));
  request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
  request.setTransferTimeout(static_cast<int>(whole.count()));
  QNetworkReply* reply = network().post(request, QByteArray::fromStdString(translationRequest(task)));
  limit(reply);
  using Stopped = std::stop_callback<std::function<void()>>;
  auto stopped = std::make_shared<Stopped>(stop, [reply = QPointer(reply)] {
    if (reply) reply->abort();
  });
  connect(reply, &QNetworkReply::finished, this, [reply, stop, stopped, done = std::move(done)] {
    reply->deleteLater();
    if (stop.stop_requested()) return;
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status == 0) return done({{}, {}, tr("The server does not answer.").toStdString()});
    done(parseServerTranslation(bodyOf(reply)));
  });
}

}  // namespace ambrel
