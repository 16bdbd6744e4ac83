#include "platform/linux/PortalRequest.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <utility>

namespace ambrel {
namespace {

const auto portal = QString::fromLatin1(portalService);
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");
// Of the signal Response.
constexpr uint wasSuccessful = 0, wasCalledOff = 1;

}  // namespace

void PortalRequest::ask(const QString& interface, const QString& method, const QVariantList& arguments,
                        QVariantMap options, Done done) {
  abandon();
  done_ = std::move(done);
  if (!bus_.isConnected()) return finish(Outcome::missing);
  const QString token = QStringLiteral("ambrel%1").arg(++turn_);
  // The object is known before the call, so that a quick answer is not missed.
  object_ = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                .arg(bus_.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_')), token);
  bus_.connect(portal, object_, requestInterface, QStringLiteral("Response"), this, SLOT(answered(uint, QVariantMap)));
  auto call = QDBusMessage::createMethodCall(portal, QString::fromLatin1(portalPath), interface, method);
  options.insert(QStringLiteral("handle_token"), token);
  call.setArguments(arguments + QVariantList{options});
  auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, turn = turn_] {
    watcher->deleteLater();
    if (watcher->isError() && turn == turn_) finish(Outcome::missing);
  });
}

void PortalRequest::answered(uint response, const QVariantMap& results) {
  finish(response == wasSuccessful  ? Outcome::answered
         : response == wasCalledOff ? Outcome::calledOff
                                    : Outcome::failed,
         results);
}

void PortalRequest::finish(Outcome outcome, const QVariantMap& results) {
  const Done done = std::exchange(done_, nullptr);
  abandon();
  if (done) done(outcome, results);
}

void PortalRequest::abandon() {
  done_ = nullptr;
  if (const QString object = std::exchange(object_, QString()); !object.isEmpty())
    bus_.disconnect(portal, object, requestInterface, QStringLiteral("Response"), this,
                    SLOT(answered(uint, QVariantMap)));
}

}  // namespace ambrel
