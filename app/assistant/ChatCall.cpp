#include "app/assistant/ChatCall.h"

#include <QUrl>
#include <utility>

#include "app/web/ServerAddress.h"
#include "core/assistant/ModelServer.h"
#include "core/base/JSON.h"

namespace ambrel {
namespace {

constexpr int ok = 200;
constexpr qsizetype longestRefusal = 64 << 10;

int statusOf(const QNetworkReply& reply) { return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); }

}  // namespace

QNetworkRequest chatRequestTo(const QString& address, const char* call) {
  return requestTo(QUrl(QString::fromStdString(modelServerURL(address.toStdString(), call)), QUrl::StrictMode));
}

ChatCall::ChatCall(Seams seams, ChatExchange exchange, std::stop_token stop, QObject* parent)
    : QObject(parent),
      seams_(std::move(seams)),
      exchange_(std::move(exchange)),
      stopped_(std::move(stop), [this] { leave(); }) {
  if (hasEnded_) return;
  for (QTimer* timer : {&silence_, &whole_}) {
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, [this] {
      problem_ = tr("The model took too long.");
      reply_->abort();
    });
  }
  whole_.start(seams_.limits.whole);
  ask();
}

void ChatCall::ask() {
  QNetworkRequest request = chatRequestTo(seams_.address, "chat/completions");
  request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
  reply_ = seams_.network.post(request, QByteArray::fromStdString(exchange_.request()));
  reply_->setParent(this);
  silence_.start(seams_.limits.begin);
  connect(reply_, &QNetworkReply::readyRead, this, &ChatCall::take);
  connect(reply_, &QNetworkReply::finished, this, &ChatCall::replyEnded);
}

void ChatCall::take() {
  const QByteArray bytes = reply_->readAll();
  silence_.start(seams_.limits.pause);
  if (statusOf(*reply_) != ok) {
    if (refusal_.size() < longestRefusal) refusal_ += bytes;
    return;
  }
  exchange_.add({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  std::string text = exchange_.text();
  if (text == shown_) return;
  shown_ = std::move(text);
  if (seams_.grown) seams_.grown(shown_);
}

void ChatCall::replyEnded() {
  if (hasEnded_) return;
  if (reply_->isOpen() && reply_->bytesAvailable() > 0) take();
  // Whoever is told of the text may have stopped it.
  if (hasEnded_) return;
  silence_.stop();
  reply_->deleteLater();
  if (const QString problem = problemOf(*reply_); !problem.isEmpty())
    return end({.text = {}, .problem = problem.toStdString()});
  switch (exchange_.end(seams_.perform)) {
    case ChatExchange::Next::ask:
      if (!hasEnded_) ask();
      return;
    case ChatExchange::Next::answered:
      return end({.text = exchange_.answer()});
    case ChatExchange::Next::failed:
      return end({.text = {}, .problem = exchange_.problem()});
  }
}

QString ChatCall::problemOf(const QNetworkReply& reply) const {
  if (!problem_.isEmpty()) return problem_;
  const int status = statusOf(reply);
  if (status == 0) return tr("The model server does not answer.");
  if (status == ok)
    return reply.error() == QNetworkReply::NoError || shown_.empty()
               ? QString()
               : tr("The model server broke off in the middle of its answer.");
  const auto document = parseJSON(refusal_.toStdString());
  const auto words = document ? chatProblem(*document) : std::nullopt;
  return words ? QString::fromStdString(*words) : tr("The model server says %1.").arg(status);
}

void ChatCall::end(const LanguageModel::Answer& answer) {
  if (std::exchange(hasEnded_, true)) return;
  deleteLater();
  seams_.done(answer);
}

void ChatCall::leave() {
  if (std::exchange(hasEnded_, true)) return;
  if (reply_) reply_->abort();
  deleteLater();
}

}  // namespace ambrel
