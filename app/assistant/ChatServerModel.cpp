#include "app/assistant/ChatServerModel.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QUrl>
#include <utility>

#include "app/assistant/ChatCall.h"
#include "app/base/StoredValue.h"
#include "app/web/ServerAddress.h"
#include "core/assistant/ModelServer.h"
#include "core/settings.h"

namespace ambrel {

ChatServerModel::ChatServerModel(const UserDefaults& defaults, ChatServerLimits limits, QObject* parent)
    : QObject(parent), defaults_(defaults), limits_(limits) {}

QNetworkAccessManager& ChatServerModel::network() {
  // It brings threads and memory of its own, so it is made when something is asked.
  if (!network_) {
    network_ = new QNetworkAccessManager(this);
    network_->setProxy(QNetworkProxy::NoProxy);
  }
  return *network_;
}

bool ChatServerModel::isAllowed(const QString& address, const UserDefaults& defaults) {
  return mayReceive(address, valueOf(defaults, setting::modelServerAllowedURL));
}

void ChatServerModel::check(std::function<void()> known) {
  if (!isLooking_ && seen_.isValid() && !seen_.hasExpired(limits_.seen.count())) {
    if (known) known();
    return;
  }
  waiting_.push_back(std::move(known));
  if (std::exchange(isLooking_, true)) return;
  QStringList addresses;
  if (const auto own = valueOf(defaults_, setting::modelServerURL); !own.empty())
    addresses << QString::fromStdString(own);
  else
    for (const std::string_view usual : usualModelServers()) addresses << toQString(usual);
  if (!valueOf(defaults_, setting::askUsesModel)) return take(ModelAbsence::off);
  if (!isAllowed(addresses.front(), defaults_)) return take(ModelAbsence::notAllowed);
  look(addresses, generation_);
}

void ChatServerModel::look(QStringList addresses, int generation) {
  if (addresses.isEmpty()) return take(ModelAbsence::notFound);
  const QString address = addresses.takeFirst();
  QNetworkRequest request = chatRequestTo(address, "models");
  request.setTransferTimeout(static_cast<int>(limits_.look.count()));
  QNetworkReply* reply = network().get(request);
  connect(reply, &QNetworkReply::readyRead, this, [reply] {
    constexpr qint64 most = 1 << 20;
    if (reply->bytesAvailable() > most) reply->abort();
  });
  connect(reply, &QNetworkReply::finished, this, [this, reply, address, addresses, generation] {
    reply->deleteLater();
    if (generation != generation_) return;
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    constexpr int unavailable = 503;
    if (status == unavailable) return take(ModelAbsence::loading);
    const QByteArray body = reply->isOpen() ? reply->readAll() : QByteArray();
    const auto models = reply->error() == QNetworkReply::NoError ? parseModels(body.toStdString()) : std::nullopt;
    if (!models) return look(addresses, generation);
    const auto model = chooseModel(*models, valueOf(defaults_, setting::modelName));
    if (!model) return take(ModelAbsence::noModel, address);
    take(std::nullopt, address, QString::fromStdString(*model));
  });
}

void ChatServerModel::take(std::optional<ModelAbsence> absence, const QString& address, const QString& model) {
  absence_ = absence;
  address_ = address;
  model_ = model;
  isLooking_ = false;
  seen_.start();
  const auto waiting = std::exchange(waiting_, {});
  for (const auto& known : waiting)
    if (known) known();
  Q_EMIT looked();
}

void ChatServerModel::forget() {
  seen_.invalidate();
  if (!isLooking_) return;
  // Those who wait are told of the settings as they are now.
  ++generation_;
  isLooking_ = false;
  check({});
}

void ChatServerModel::respond(Request request, std::stop_token stop, std::function<void(const Answer&)> done) {
  ChatQuestion question{.instructions = std::move(request.instructions),
                        .earlier = std::move(request.earlier),
                        .prompt = std::move(request.prompt),
                        .hasTools = static_cast<bool>(request.perform)};
  new ChatCall({.network = network(),
                .limits = limits_,
                .address = address_,
                .perform = std::move(request.perform),
                .grown = std::move(request.grown),
                .done =
                    [this, done = std::move(done)](const Answer& answer) {
                      if (answer.text.empty()) forget();
                      done(answer);
                    }},
               ChatExchange(model_.toStdString(), std::move(question)), std::move(stop), this);
}

}  // namespace ambrel
